#include "sql_data_set.h"

#include <algorithm>
#include <limits>
#include <unordered_map>
#include <utility>

#include "number_text.h"
#include "sql_column_reader.h"
#include "sql_dialect.h"
#include "sql_number_bins.h"
#include "sql_query_builder.h"
#include "sql_session.h"
#include "sql_time_gaps.h"

namespace {

/** The position of a member that no row has. */
constexpr std::uint64_t nowhere = std::numeric_limits<std::uint32_t>::max();

} // namespace

SqlDataSet::SqlDataSet(SqlSession& session, const DataBinding& wanted)
{
    const DataBinding binding = resolveNumberBins(session, wanted);
    // 1. One query answers everything, so that members and values are of one moment.
    SqlQueryBuilder builder(session.getDialect(), binding, SqlColumnReader(session, binding).readColumns());
    *this = SqlDataSet(builder);
    m_cells = session.query(builder.obtainQuery());
    const std::size_t rows = m_cells.getRowCount();
    m_isEmpty = rows == 0 || m_cells.getNumber(0, builder.obtainCountColumn()) == 0;

    // 2. Name what stands in its result.
    for (std::size_t i = 0; i < binding.dimensions.size(); ++i) {
        _readMembers(binding, i);
        Dimension& dimension = m_dimensions[i];
        if (binding.dimensions[i].shouldFillGaps)
            dimension.members = fillSqlTimeGaps(std::move(dimension.members), binding, i, *dimension.level);
    }
}

SqlDataSet::SqlDataSet(const SqlQueryBuilder& builder)
{
    m_measures.reserve(builder.getMeasureCount());
    m_dimensions.reserve(builder.getDimensionCount());
    for (std::size_t i = 0; i < builder.getMeasureCount(); ++i)
        m_measures.push_back({builder.obtainMeasureType(i), builder.obtainMeasureColumn(i)});
    for (std::size_t i = 0; i < builder.getDimensionCount(); ++i)
        m_dimensions.push_back({builder.obtainDimensionType(i),
                                builder.obtainDimensionLevel(i),
                                SqlQueryBuilder::obtainPositionColumn(i),
                                builder.obtainBinWidth(i),
                                {}});
}

void SqlDataSet::_readMembers(const DataBinding& binding, std::size_t index)
{
    Dimension& dimension = m_dimensions[index];
    for (std::size_t row = 0; row < m_cells.getRowCount(); ++row) {
        const auto position = static_cast<std::size_t>(m_cells.getNumber(row, dimension.positionColumn));
        if (position >= dimension.members.size())
            dimension.members.resize(position + 1);
        if (dimension.members[position].position)
            continue;
        const std::size_t text = dimension.positionColumn + 1, number = text + 1;
        dimension.members[position] = readSqlMember(binding, index, dimension.type, dimension.level,
                                                    {position, m_cells.isNull(row, text),
                                                     m_cells.getText(row, text),
                                                     m_cells.getNumber(row, number)});
    }
}

std::uint64_t SqlDataSet::obtainMember(std::size_t row, std::size_t dimension) const
{
    const Dimension& found = m_dimensions[dimension];
    const auto position = static_cast<std::uint64_t>(m_cells.getNumber(row, found.positionColumn));
    // Members that fill gaps stand between, in either order, so that no member stands before its position.
    std::uint64_t member = position;
    while (member < found.members.size() && found.members[member].position != position)
        ++member;
    return member;
}

void SqlDataSet::setMembers(std::size_t dimension, std::vector<SqlMember> members)
{
    // Null and the others are told apart from members of their names.
    const auto obtainKey = [](const SqlMember& member) {
        return (member.isNull ? "n" : member.isOthers() ? "o" : "=") + member.text;
    };
    std::unordered_map<std::string, std::optional<std::uint64_t>> positions;
    positions.reserve(m_dimensions[dimension].members.size());
    for (const SqlMember& member : m_dimensions[dimension].members)
        positions[obtainKey(member)] = member.position;
    for (SqlMember& member : members) {
        const auto found = positions.find(obtainKey(member));
        // What stands for the others stays that, also without a row: no result has this position.
        const bool isOthers = member.isOthers();
        member.position = found != positions.end() ? found->second : std::nullopt;
        if (!member.position && isOthers)
            member.position = nowhere;
    }
    m_dimensions[dimension].members = std::move(members);
}

std::optional<std::size_t> SqlDataSet::_findRow(std::span<const std::uint64_t> members) const
{
    if (m_isEmpty || members.size() < m_dimensions.size())
        return std::nullopt;
    const auto getPosition = [&](std::size_t dimension) {
        return m_dimensions[dimension].members[members[dimension]].position;
    };
    for (std::size_t i = 0; i < m_dimensions.size(); ++i) {
        if (members[i] >= m_dimensions[i].members.size() || !getPosition(i))
            return std::nullopt;
    }

    // The rows are sorted by position, so a cell is found by halving.
    const auto compare = [&](std::size_t row) {
        for (std::size_t i = 0; i < m_dimensions.size(); ++i) {
            const double position = m_cells.getNumber(row, m_dimensions[i].positionColumn);
            const auto wanted = static_cast<double>(*getPosition(i));
            if (position != wanted)
                return position < wanted ? -1 : 1;
        }
        return 0;
    };
    std::size_t low = 0, high = m_cells.getRowCount();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (compare(middle) < 0)
            low = middle + 1;
        else
            high = middle;
    }
    return low < m_cells.getRowCount() && compare(low) == 0 ? std::optional(low) : std::nullopt;
}

SqlValue SqlDataSet::obtainValue(std::size_t measure, std::span<const std::uint64_t> members) const
{
    SqlValue value;
    const std::optional<std::size_t> row = _findRow(members);
    if (!row || measure >= m_measures.size())
        return value;
    const auto& [type, column] = m_measures[measure];
    value.isPresent = true;
    value.isNull = m_cells.isNull(*row, column);
    if (value.isNull)
        return value;
    if (type == KXChartDataType::Integer || type == KXChartDataType::Float) {
        value.number = m_cells.getNumber(*row, column);
        value.text = obtainNumberText(value.number);
    } else {
        value.text = m_cells.getText(*row, column);
    }
    return value;
}

double SqlDataSet::obtainNumber(std::size_t measure, std::span<const std::uint64_t> members) const
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    const std::optional<std::size_t> row = _findRow(members);
    return row ? obtainRowNumber(measure, *row) : none;
}

double SqlDataSet::obtainRowNumber(std::size_t measure, std::size_t row) const
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (measure >= m_measures.size() || row >= m_cells.getRowCount() ||
        m_cells.isNull(row, m_measures[measure].column))
        return none;
    const auto& [type, column] = m_measures[measure];
    const bool isNumeric = type == KXChartDataType::Integer || type == KXChartDataType::Float;
    return isNumeric ? m_cells.getNumber(row, column) : 0;
}
