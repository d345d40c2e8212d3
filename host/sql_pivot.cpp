#include "sql_pivot.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>

#include "kx_table_chart_data_provider.h"
#include "sql_dialect.h"
#include "sql_session.h"

namespace {

std::size_t countRowDimensions(const DataBinding& binding)
{
    return static_cast<std::size_t>(
        std::ranges::count(binding.dimensions, false, &DimensionBinding::isAcross));
}

bool isNumeric(KXChartDataType type)
{
    return type == KXChartDataType::Integer || type == KXChartDataType::Float;
}

std::string nameMeasure(std::size_t measure) { return "m" + std::to_string(measure); }
std::string namePart(std::size_t measure) { return "h" + std::to_string(measure); }
/** @return a condition that leaves out nulls, too */
std::string isFinite(const std::string& name) { return "ABS(" + name + ") <= 1.7976931348623157e308"; }

} // namespace

SqlPivot::SqlPivot(SqlSession& session, const DataBinding& binding)
    : m_tables(session, binding, countRowDimensions(binding)),
      m_rows(m_tables, true, 0, countRowDimensions(binding)),
      m_columns(m_tables, false, countRowDimensions(binding),
                binding.dimensions.size() - countRowDimensions(binding))
{
}

/** @param first a position below the parent, or that of all members: then the parent's own line */
SqlPivotSide::Range SqlPivot::_obtainRange(bool isRow, const KXIndexPath& parent, std::uint64_t first,
                                           std::uint64_t count)
{
    SqlPivotSide& side = _side(isRow);
    if (first != KXTableChartDataProvider::allMembers && side.getDimensionCount() > 0)
        return side.obtainRange(parent, first, count);
    return side.findLine(parent).value_or(SqlPivotSide::Range{0, 0, 0});
}

void SqlPivot::obtainCells(const KXIndexPath& rowParent, std::uint64_t firstRow,
                           const KXIndexPath& columnParent, std::uint64_t firstColumn, std::size_t measure,
                           const KXTableCellSpan& cells)
{
    // 1. Which lines meet
    const SqlPivotSide::Range ranges[] = {_obtainRange(true, rowParent, firstRow, cells.obtainRowCount()),
                                          _obtainRange(false, columnParent, firstColumn, cells.columnCount)};
    const SqlQueryBuilder& builder = m_tables.getBuilder();
    if (ranges[0].count == 0 || ranges[1].count == 0 || measure >= builder.getMeasureCount())
        return;

    // 2. Each pair of them looks up its cell. Written as cross joins, because SQLite keeps the order of
    // these.
    const SqlPivotTables::Cells found = m_tables.obtainCells(ranges[0].level, ranges[1].level);
    const std::string from = found.table + " c", name = "c." + nameMeasure(measure);
    const KXChartDataType type = builder.obtainMeasureType(measure);
    const SqlDialect& dialect = m_tables.getSession().getDialect();
    std::string places[] = {"0", "0"}, tables, conditions = found.condition;
    for (const bool isRow : {true, false}) {
        const SqlPivotSide::Range& range = ranges[isRow ? 0 : 1];
        if (range.level == 0)
            continue;
        const std::string line = isRow ? "x" : "y", id = line + ".id";
        places[isRow ? 0 : 1] = id + " - " + std::to_string(range.first);
        tables += _side(isRow).obtainTable(range.level) + ' ' + line + " CROSS JOIN ";
        conditions += " AND " + id + " BETWEEN " + std::to_string(range.first) + " AND " +
                      std::to_string(range.first + range.count - 1);
        for (const std::size_t dimension :
             m_tables.obtainDimensions(isRow ? range.level : 0, isRow ? 0 : range.level)) {
            const std::string position = ".p" + std::to_string(dimension);
            conditions += " AND c" + position + " = " + line + position;
        }
    }
    const bool hasPart = builder.tellsPart(measure);
    const std::string part = hasPart ? dialect.obtainExactNumber("c." + namePart(measure)) : "0";
    const SqlTable rows = m_tables.getSession().query(
        {"SELECT " + places[0] + ", " + places[1] + ", " +
             (isNumeric(type) ? dialect.obtainExactNumber(name) : name) + ", " + part + " FROM " + tables +
             from + " WHERE " + conditions,
         {},
         {SqlResultType::Number, SqlResultType::Number,
          isNumeric(type) ? SqlResultType::Number : SqlResultType::Text, SqlResultType::Number}});

    // 3. What is not found has no rows behind it.
    for (std::size_t i = 0; i < rows.getRowCount(); ++i) {
        KXTableCell& cell = cells.at(static_cast<std::uint64_t>(rows.getNumber(i, 0)),
                                     static_cast<std::uint64_t>(rows.getNumber(i, 1)));
        cell.state = rows.isNull(i, 2) ? KXTableCellState::Null : KXTableCellState::Value;
        if (cell.state == KXTableCellState::Null)
            continue;
        if (isNumeric(type))
            cell.number = rows.getNumber(i, 2);
        else
            cell.text = rows.getText(i, 2);
        if (hasPart) // a sum of no rows is null
            cell.part = rows.isNull(i, 3) ? 0 : rows.getNumber(i, 3);
    }
}

KXTableExtent SqlPivot::obtainExtent(std::size_t measure)
{
    KXTableExtent extent;
    const SqlQueryBuilder& builder = m_tables.getBuilder();
    if (measure >= builder.getMeasureCount() || !isNumeric(builder.obtainMeasureType(measure)))
        return extent;
    const std::string name = "c." + nameMeasure(measure);
    const auto extend = [&](std::size_t rowLevels, std::size_t columnLevels, bool isTotal) {
        const SqlPivotTables::Cells cells = m_tables.obtainCells(rowLevels, columnLevels);
        const SqlTable ends = m_tables.getSession().query(
            {"SELECT MIN(" + name + "), MAX(" + name + "), MIN(CASE WHEN " + name + " <> ROUND(" + name +
                 ") THEN " + name + " END) FROM " + cells.table + " c WHERE " + cells.condition + " AND " +
                 isFinite(name),
             {},
             std::vector(3, SqlResultType::Number)});
        for (std::size_t i = 0; i < 3; ++i)
            if (!ends.isNull(0, i))
                kxExtendTableExtent(extent, ends.getNumber(0, i), isTotal);
    };
    const std::size_t rows = m_rows.getDimensionCount(), columns = m_columns.getDimensionCount();
    extend(rows, columns, false);
    if (rows + columns > 0) // the average of whole numbers may be none
        extend(0, 0, true);
    return extent;
}

bool SqlPivot::obtainPercentiles(std::size_t measure, std::span<double> values)
{
    const SqlQueryBuilder& builder = m_tables.getBuilder();
    if (measure >= builder.getMeasureCount() || !isNumeric(builder.obtainMeasureType(measure)))
        return false;

    // 1. Which of the cells, in their order, lie around each step
    const SqlPivotTables::Cells cells = m_tables.obtainCells(m_rows.getDimensionCount(),
                                                             m_columns.getDimensionCount());
    const std::string name = "c." + nameMeasure(measure);
    const std::string from = " FROM " + cells.table + " c WHERE " + cells.condition + " AND " +
                             isFinite(name);
    SqlSession& session = m_tables.getSession();
    const double count =
        session.query({"SELECT COUNT(*)" + from, {}, {SqlResultType::Number}}).getNumber(0, 0);
    if (!(count > 0))
        return false;
    std::set<std::uint64_t> ranks;
    const auto obtainPlace = [&](std::size_t step) {
        return (count - 1) * static_cast<double>(step) /
               static_cast<double>(std::max<std::size_t>(values.size() - 1, 1));
    };
    for (std::size_t step = 0; step < values.size(); ++step)
        ranks.insert({static_cast<std::uint64_t>(std::floor(obtainPlace(step))),
                      static_cast<std::uint64_t>(std::ceil(obtainPlace(step)))});

    // 2. Their values
    std::string list;
    for (const std::uint64_t rank : ranks)
        list += (list.empty() ? "" : ", ") + std::to_string(rank);
    const SqlTable found = session.query(
        {"SELECT ranked.n, " + session.getDialect().obtainExactNumber("ranked.v") + " FROM (SELECT " + name +
             " AS v, ROW_NUMBER() OVER (ORDER BY " + name + ") - 1 AS n" + from +
             ") AS ranked WHERE ranked.n IN (" + list + ')',
         {},
         {SqlResultType::Number, SqlResultType::Number}});
    std::map<double, double> byRank;
    for (std::size_t row = 0; row < found.getRowCount(); ++row)
        byRank[found.getNumber(row, 0)] = found.getNumber(row, 1);
    for (std::size_t step = 0; step < values.size(); ++step) {
        const double place = obtainPlace(step), before = std::floor(place);
        values[step] = std::lerp(byRank[before], byRank[std::ceil(place)], place - before);
    }
    return true;
}

void SqlPivot::sort(const std::vector<KXTableSort>& order)
{
    const SqlQueryBuilder& builder = m_tables.getBuilder();
    std::vector<SqlPivotSide::OrderKey> keys;
    keys.reserve(order.size());
    for (const KXTableSort& sort : order) {
        SqlPivotSide::OrderKey key;
        key.isDescending = sort.isDescending;
        if (sort.measure >= builder.getMeasureCount()) {
            key.dimension = sort.measure - builder.getMeasureCount();
            keys.push_back(std::move(key));
            continue;
        }
        const std::optional<SqlPivotSide::Range> column = m_columns.findLine(sort.column);
        if (!column)
            continue; // no row has a value there
        key.others = m_columns.obtainPositions(*column);
        key.measure = nameMeasure(sort.measure);
        key.isText = !isNumeric(builder.obtainMeasureType(sort.measure));
        keys.push_back(std::move(key));
    }
    m_rows.sort(keys);
}
