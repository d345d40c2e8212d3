#include "sql_pivot.h"

#include <algorithm>
#include <cmath>

#include "sql_session.h"

namespace {

/** @return -1, 0 or 1; cells without a value come last whichever way is sorted */
int compareCells(const KXTableCell& a, const KXTableCell& b, bool isDescending)
{
    const bool hasA = a.state == KXTableCellState::Value, hasB = b.state == KXTableCellState::Value;
    if (!hasA || !hasB)
        return hasA == hasB ? 0 : hasA ? -1 : 1;
    int result = 0;
    if (std::isnan(a.number))
        result = a.text.compare(b.text);
    else
        result = a.number < b.number ? -1 : a.number > b.number ? 1 : 0;
    return isDescending ? -result : result;
}

} // namespace

SqlPivot::SqlPivot(SqlSession& session, const DataBinding& binding)
    : m_session(session), m_binding(binding), m_rowCount(static_cast<std::size_t>(std::ranges::count(
                                                  binding.dimensions, false, &DimensionBinding::isAcross))),
      m_columnCount(binding.dimensions.size() - m_rowCount)
{
    if (m_rowCount > 0)
        m_rows = SqlPivotSide(_obtainLevel(m_rowCount, 0));
    if (m_columnCount > 0)
        m_columns = SqlPivotSide(_obtainLevel(0, m_columnCount));
}

const SqlDataSet& SqlPivot::_obtainLevel(std::size_t rowLevels, std::size_t columnLevels)
{
    const std::pair key(rowLevels, columnLevels);
    const auto found = m_levels.find(key);
    if (found != m_levels.end())
        return found->second;
    DataBinding binding = m_binding;
    binding.dimensions.clear();
    binding.dimensions.reserve(rowLevels + columnLevels);
    for (std::size_t i = 0; i < rowLevels; ++i)
        binding.dimensions.push_back(m_binding.dimensions[i]);
    for (std::size_t i = 0; i < columnLevels; ++i)
        binding.dimensions.push_back(m_binding.dimensions[m_rowCount + i]);
    return m_levels.emplace(key, SqlDataSet(m_session, binding)).first->second;
}

std::uint64_t SqlPivot::obtainCount(bool isRow, const KXIndexPath& path) const
{
    return _side(isRow).obtainCount(path);
}

const SqlMember* SqlPivot::findMember(bool isRow, const KXIndexPath& path) const
{
    const std::vector<std::uint64_t> members = _side(isRow).obtainMembers(path);
    if (path.empty() || members.size() < path.size())
        return nullptr;
    const SqlDataSet& all = m_levels.at(isRow ? std::pair(m_rowCount, std::size_t{0})
                                              : std::pair(std::size_t{0}, m_columnCount));
    return &all.getMembers(path.size() - 1)[members.back()];
}

KXTableCell SqlPivot::obtainCell(const KXIndexPath& row, const KXIndexPath& column, std::size_t measure)
{
    const std::vector<std::uint64_t> rowMembers = m_rows.obtainMembers(row);
    const std::vector<std::uint64_t> columnMembers = m_columns.obtainMembers(column);
    return rowMembers.size() < row.size() || columnMembers.size() < column.size()
               ? KXTableCell()
               : _obtainCell(rowMembers, columnMembers, measure);
}

KXTableCell SqlPivot::_obtainCell(const std::vector<std::uint64_t>& rowMembers,
                                  const std::vector<std::uint64_t>& columnMembers, std::size_t measure)
{
    std::vector<std::uint64_t> members = rowMembers;
    members.insert(members.end(), columnMembers.begin(), columnMembers.end());
    const SqlDataSet& level = _obtainLevel(rowMembers.size(), columnMembers.size());
    KXTableCell cell;
    const SqlValue value = level.obtainValue(measure, members);
    if (!value.isPresent)
        return cell;
    if (value.isNull) {
        cell.state = KXTableCellState::Null;
        return cell;
    }
    cell.state = KXTableCellState::Value;
    const KXChartDataType type = level.getMeasureType(measure);
    if (type == KXChartDataType::Integer || type == KXChartDataType::Float)
        cell.number = value.number;
    else
        cell.text = value.text;
    return cell;
}

KXTableExtent SqlPivot::obtainExtent(std::size_t measure)
{
    KXTableExtent extent;
    const SqlDataSet& cells = _obtainLevel(m_rowCount, m_columnCount);
    for (std::size_t row = 0; row < cells.getRowCount(); ++row)
        kxExtendTableExtent(extent, cells.obtainRowNumber(measure, row), false);
    if (m_rowCount + m_columnCount > 0) // the average of whole numbers may be none
        kxExtendTableExtent(extent, _obtainLevel(0, 0).obtainRowNumber(measure, 0), true);
    return extent;
}

void SqlPivot::sort(const std::vector<KXTableSort>& order)
{
    if (m_rowCount == 0)
        return;
    m_rows = SqlPivotSide(_obtainLevel(m_rowCount, 0));
    if (order.empty())
        return;
    std::vector<std::vector<std::uint64_t>> columns;
    columns.reserve(order.size());
    for (const KXTableSort& sort : order)
        columns.push_back(m_columns.obtainMembers(sort.column));
    m_rows.sort([&](std::span<const std::uint64_t> a, std::span<const std::uint64_t> b) {
        for (std::size_t i = 0; i < order.size(); ++i) {
            const auto obtain = [&](std::span<const std::uint64_t> row) {
                return _obtainCell({row.begin(), row.end()}, columns[i], order[i].measure);
            };
            if (const int result = compareCells(obtain(a), obtain(b), order[i].isDescending))
                return result < 0;
        }
        return false;
    });
}
