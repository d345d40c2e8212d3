#include "sql_pivot_side.h"

#include <algorithm>
#include <cmath>

#include "number_text.h"
#include "sql_dialect.h"
#include "sql_pivot_tables.h"
#include "sql_session.h"

namespace {

/** What lies below lines is asked for so many of them at once, and not of more of them remembered. */
constexpr std::uint64_t page = 1024;
constexpr std::size_t greatestKnownCount = 1 << 17;

std::string position(std::size_t dimension) { return ".p" + std::to_string(dimension); }

std::string writeRange(const std::string& column, std::uint64_t first, std::uint64_t count)
{
    return column + " BETWEEN " + std::to_string(first) + " AND " + std::to_string(first + count - 1);
}

} // namespace

SqlPivotSide::SqlPivotSide(SqlPivotTables& tables, bool isRow, std::size_t firstDimension, std::size_t count)
    : m_tables(tables), m_isRow(isRow), m_first(firstDimension), m_count(count)
{
    sort({});
}

std::string SqlPivotSide::obtainTable(std::size_t level) const
{
    return m_tables.obtainName((m_isRow ? "rows" : "columns") + std::to_string(level));
}

void SqlPivotSide::sort(const std::vector<OrderKey>& keys)
{
    m_below.clear();
    for (std::size_t level = 1; level <= m_count; ++level)
        _rank(level, keys);
}

/** @return the condition that two lines have the same members in the first levels */
std::string SqlPivotSide::_joinLines(const std::string& first, const std::string& second,
                                     std::size_t levels) const
{
    std::string condition;
    for (std::size_t i = 0; i < levels; ++i)
        condition += (i ? " AND " : "") + first + position(m_first + i) + " = " + second +
                     position(m_first + i);
    return condition;
}

void SqlPivotSide::_rank(std::size_t level, const std::vector<OrderKey>& keys)
{
    // 1. Which lines there are: those of the data, and of a dimension that stands alone all of its members.
    const std::size_t last = m_first + level - 1;
    std::string lines, present, names;
    for (std::size_t i = m_first; i <= last; ++i) {
        names += ", t" + position(i);
        lines += (lines.empty() ? "SELECT DISTINCT p" : ", p") + std::to_string(i);
        present += (present.empty() ? " WHERE p" : " AND p") + std::to_string(i) + " IS NOT NULL";
    }
    lines += " FROM " + m_tables.obtainFacts() + present;
    if (m_count == 1)
        lines = "SELECT p AS p" + std::to_string(last) + " FROM " + m_tables.obtainMembers(last);

    // 2. They stand below each other's, and there in the order that is wanted.
    std::string order, joins, parent = "0";
    if (level > 1) {
        parent = "parent.id";
        joins = " JOIN " + obtainTable(level - 1) + " parent ON " + _joinLines("parent", "t", level - 1);
        order = parent + ", ";
    }
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const OrderKey& key = keys[i];
        const std::string way = key.isDescending ? " DESC" : "";
        if (key.dimension) {
            if (*key.dimension == last)
                order += "t" + position(last) + way + ", ";
            continue;
        }
        const std::string cells = "c" + std::to_string(i);
        const SqlPivotTables::Cells found = m_tables.obtainCells(level, key.others.size());
        joins += " LEFT JOIN (SELECT * FROM " + found.table + " c WHERE " + found.condition;
        for (const auto& [dimension, value] : key.others)
            joins += " AND c" + position(dimension) + " = " + obtainNumberText(value);
        joins += ") " + cells + " ON " + _joinLines(cells, "t", level);
        const std::string value = cells + '.' + key.measure;
        order += (key.isText ? m_tables.getSession().getDialect().obtainByteOrder(value) : value) + way +
                 " NULLS LAST, ";
    }
    order += "t" + position(last);

    // 3. Their ranks.
    const std::string table = obtainTable(level);
    m_tables.makeTable(table, {"SELECT ROW_NUMBER() OVER (ORDER BY " + order + ") - 1 AS id, " + parent +
                                   " AS parent" + names + " FROM (" + lines + ") t" + joins,
                               {},
                               {}});
    SqlSession& session = m_tables.getSession();
    session.execute("CREATE UNIQUE INDEX " + table + "_id ON " + table + " (id)");
    session.execute("CREATE INDEX " + table + "_parent ON " + table + " (parent)");
}

/** @return the lines right below one */
SqlPivotSide::Range SqlPivotSide::_obtainBelow(const Range& line)
{
    const std::size_t level = line.level + 1;
    if (level > m_count)
        return {level, 0, 0};
    if (const auto found = m_below.find({level, line.first}); found != m_below.end())
        return found->second;
    if (m_below.size() > greatestKnownCount)
        m_below.clear();
    const std::uint64_t first = line.first - line.first % page;
    const SqlTable counts = m_tables.getSession().query(
        {"SELECT parent, MIN(id), COUNT(*) FROM " + obtainTable(level) + " WHERE " +
             writeRange("parent", first, page) + " GROUP BY parent",
         {},
         std::vector(3, SqlResultType::Number)});
    for (std::size_t row = 0; row < counts.getRowCount(); ++row) {
        const auto read = [&](std::size_t column) {
            return static_cast<std::uint64_t>(counts.getNumber(row, column));
        };
        m_below[{level, read(0)}] = {level, read(1), read(2)};
    }
    return m_below.try_emplace({level, line.first}, Range{level, 0, 0}).first->second;
}

std::optional<SqlPivotSide::Range> SqlPivotSide::findLine(const KXIndexPath& path)
{
    Range line;
    for (const std::uint64_t index : path) {
        const Range below = _obtainBelow(line);
        if (index >= below.count)
            return std::nullopt;
        line = {below.level, below.first + index, 1};
    }
    return line;
}

std::uint64_t SqlPivotSide::obtainCount(const KXIndexPath& path)
{
    const std::optional<Range> line = findLine(path);
    return line ? _obtainBelow(*line).count : 0;
}

SqlPivotSide::Range SqlPivotSide::obtainRange(const KXIndexPath& parent, std::uint64_t first,
                                              std::uint64_t count)
{
    const std::optional<Range> line = findLine(parent);
    Range range = line ? _obtainBelow(*line) : Range{1, 0, 0};
    const std::uint64_t start = std::min(first, range.count);
    return {range.level, range.first + start, std::min(count, range.count - start)};
}

std::vector<SqlMember> SqlPivotSide::obtainMembers(const KXIndexPath& parent, std::uint64_t first,
                                                   std::uint64_t count)
{
    std::vector<SqlMember> members;
    const Range range = obtainRange(parent, first, count);
    if (range.count == 0)
        return members;
    const std::size_t dimension = m_first + range.level - 1;
    const SqlTable rows = m_tables.getSession().query(
        {"SELECT m.p, m.d, m.n FROM " + obtainTable(range.level) + " t JOIN " +
             m_tables.obtainMembers(dimension) + " m ON m.p = t" + position(dimension) + " WHERE " +
             writeRange("t.id", range.first, range.count) + " ORDER BY t.id",
         {},
         {SqlResultType::Number, SqlResultType::Text, SqlResultType::Number}});
    const SqlQueryBuilder& builder = m_tables.getBuilder();
    members.reserve(rows.getRowCount());
    for (std::size_t row = 0; row < rows.getRowCount(); ++row) {
        const double place = rows.getNumber(row, 0);
        members.push_back(readSqlMember(m_tables.getBinding(), dimension,
                                        builder.obtainDimensionType(dimension),
                                        builder.obtainDimensionLevel(dimension),
                                        {static_cast<std::uint64_t>(place), rows.isNull(row, 1),
                                         rows.getText(row, 1), rows.getNumber(row, 2)}));
        if (place != std::floor(place)) { // it fills a gap
            members.back().isGenerated = true;
            members.back().position.reset();
        }
    }
    return members;
}

std::vector<std::pair<std::size_t, double>> SqlPivotSide::obtainPositions(const Range& line)
{
    std::vector<std::pair<std::size_t, double>> positions;
    if (line.level == 0)
        return positions;
    std::string list;
    for (std::size_t i = 0; i < line.level; ++i)
        list += (i ? ", t" : "t") + position(m_first + i);
    const SqlTable rows = m_tables.getSession().query({"SELECT " + list + " FROM " + obtainTable(line.level) +
                                                           " t WHERE t.id = " + std::to_string(line.first),
                                                       {},
                                                       std::vector(line.level, SqlResultType::Number)});
    for (std::size_t i = 0; i < line.level && rows.getRowCount() > 0; ++i)
        positions.emplace_back(m_first + i, rows.getNumber(0, i));
    return positions;
}
