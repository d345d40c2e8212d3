#include "sql_pivot_tables.h"

#include <algorithm>
#include <atomic>
#include <cmath>

#include "host_error.h"
#include "number_text.h"
#include "sql_column_reader.h"
#include "sql_dialect.h"
#include "sql_number_bins.h"
#include "sql_session.h"
#include "sql_time_gaps.h"

namespace {

std::string column(const char* name, std::size_t index) { return name + std::to_string(index); }

/** @return p0, p1 and so on */
std::string listPositions(const std::vector<std::size_t>& dimensions)
{
    std::string list;
    for (const std::size_t dimension : dimensions)
        list += (list.empty() ? "" : ", ") + column("p", dimension);
    return list;
}

} // namespace

SqlPivotTables::SqlPivotTables(SqlSession& session, DataBinding binding, std::size_t rowCount)
    : m_session(session), m_binding(resolveNumberBins(session, std::move(binding))),
      m_builder(session.getDialect(), m_binding, SqlColumnReader(session, m_binding).readColumns()),
      m_rowCount(rowCount)
{
    static std::atomic<unsigned> pivotCount = 0;
    m_prefix = "kx_pivot" + std::to_string(++pivotCount) + "_";
    try {
        _make();
    } catch (const HostError&) {
        _dropAll();
        throw;
    }
}

SqlPivotTables::~SqlPivotTables() { _dropAll(); }

void SqlPivotTables::_make()
{
    // 1. The rows are read here, and then no more.
    const std::string groups = obtainName("groups");
    makeTable(groups, m_builder.obtainGroupsQuery());
    const SqlTable rows = m_session.query(
        {"SELECT COALESCE(SUM(r), 0) FROM " + groups, {}, {SqlResultType::Number}});
    m_isEmpty = rows.getNumber(0, 0) == 0;

    // 2. Members get their positions, and groups those of their members.
    std::vector<SqlQueryBuilder::MemberKeys> keys;
    keys.reserve(m_binding.dimensions.size());
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i)
        keys.push_back(_placeMembers(groups, i));
    makeTable(obtainFacts(), {m_builder.obtainFactsQuery(groups, keys), {}, {}});
    for (const SqlQueryBuilder::MemberKeys& each : keys)
        _drop(each.table);
    _drop(groups);
    if (m_session.getDialect().hasGroupingSets())
        _makeAllLevels();
}

void SqlPivotTables::_dropAll()
{
    for (const std::string& table : m_tables) {
        try {
            m_session.execute("DROP TABLE IF EXISTS " + table);
        } catch (const HostError&) { // it goes with the session
        }
    }
}

void SqlPivotTables::makeTable(const std::string& name, SqlQuery query)
{
    _drop(name);
    m_tables.push_back(name);
    query.text = "CREATE TEMPORARY TABLE " + name + " AS " + query.text;
    m_session.execute(query);
    if (const std::string analysis = m_session.getDialect().obtainAnalysis(name); !analysis.empty())
        m_session.execute(analysis);
}

void SqlPivotTables::_drop(const std::string& name)
{
    if (std::erase(m_tables, name) > 0)
        m_session.execute("DROP TABLE IF EXISTS " + name);
}

/** What is put together as one member has a key each: members of their own are what these share. */
SqlQueryBuilder::MemberKeys SqlPivotTables::_placeMembers(const std::string& groups, std::size_t dimension)
{
    const std::string keys = obtainName(column("keys", dimension));
    makeTable(keys, {m_builder.obtainMembersQuery(groups, dimension), {}, {}});
    m_session.execute("CREATE INDEX " + keys + "_g ON " + keys + " (g)");
    const std::string members = obtainMembers(dimension);
    makeTable(members, {"SELECT p, MIN(d) AS d, MIN(n) AS n FROM " + keys + " GROUP BY p", {}, {}});
    const bool isAlone = (dimension < m_rowCount ? m_rowCount : m_binding.dimensions.size() - m_rowCount) ==
                         1;
    if (isAlone && m_binding.dimensions[dimension].shouldFillGaps)
        _fillGaps(members, dimension);
    m_session.execute("CREATE UNIQUE INDEX " + members + "_p ON " + members + " (p)");
    const SqlTable null = m_session.query(
        {"SELECT p FROM " + keys + " WHERE g IS NULL", {}, {SqlResultType::Number}});
    return {keys, null.getRowCount() > 0 ? std::optional(null.getNumber(0, 0)) : std::nullopt};
}

/** Steps of time that the data leave out stand between those that they have. */
void SqlPivotTables::_fillGaps(const std::string& table, std::size_t dimension)
{
    const DateLevel level = *m_builder.obtainDimensionLevel(dimension);
    const SqlTable rows = m_session.query(
        {"SELECT p, d FROM " + table + " ORDER BY p", {}, {SqlResultType::Number, SqlResultType::Text}});
    std::vector<SqlMember> members;
    members.reserve(rows.getRowCount());
    for (std::size_t row = 0; row < rows.getRowCount(); ++row)
        members.push_back(readSqlMember(m_binding, dimension, m_builder.obtainDimensionType(dimension), level,
                                        {static_cast<std::uint64_t>(rows.getNumber(row, 0)),
                                         rows.isNull(row, 1), rows.getText(row, 1), 0}));
    const std::vector<SqlMember> filled = fillSqlTimeGaps(std::move(members), m_binding, dimension, level);

    constexpr std::size_t rowsOfStatement = 256;
    std::string values;
    std::size_t count = 0;
    const auto write = [&] {
        if (count > 0)
            m_session.execute("INSERT INTO " + table + " (p, d, n) VALUES " + values);
        values.clear();
        count = 0;
    };
    double before = 0;
    for (std::size_t i = 0; i < filled.size(); ++i) {
        if (filled[i].position) {
            before = static_cast<double>(*filled[i].position);
            continue;
        }
        // Of so many steps this one is the n-th after a member.
        std::size_t first = i, end = i;
        while (end < filled.size() && !filled[end].position)
            ++end;
        for (; i < end; ++i) {
            const double position = before +
                                    static_cast<double>(i - first + 1) / static_cast<double>(end - first + 1);
            values += (count++ ? ", (" : "(") + obtainNumberText(position) + ", '" + filled[i].text + "', 0)";
            if (count == rowsOfStatement)
                write();
        }
        --i;
    }
    write();
}

std::vector<std::size_t> SqlPivotTables::obtainDimensions(std::size_t rowLevels,
                                                          std::size_t columnLevels) const
{
    std::vector<std::size_t> dimensions;
    dimensions.reserve(rowLevels + columnLevels);
    for (std::size_t i = 0; i < rowLevels; ++i)
        dimensions.push_back(i);
    for (std::size_t i = 0; i < columnLevels; ++i)
        dimensions.push_back(m_rowCount + i);
    return dimensions;
}

/** One query groups by each level: a bit for each dimension says that it is summed up. */
void SqlPivotTables::_makeAllLevels()
{
    const std::size_t count = m_binding.dimensions.size();
    const std::string table = obtainName("levels");
    std::string sets;
    for (std::size_t rows = 0; rows <= m_rowCount; ++rows)
        for (std::size_t columns = 0; columns <= count - m_rowCount; ++columns) {
            const std::vector<std::size_t> dimensions = obtainDimensions(rows, columns);
            std::size_t level = 0;
            std::string condition;
            for (std::size_t i = 0; i < count; ++i)
                if (std::ranges::find(dimensions, i) == dimensions.end()) {
                    level |= std::size_t{1} << (count - 1 - i);
                    condition += " AND c." + column("p", i) + " IS NULL";
                }
            sets += (sets.empty() ? "(" : ", (") + listPositions(dimensions) + ')';
            m_levels[{rows, columns}] = {table, "c.level = " + std::to_string(level) + condition};
        }
    const std::string positions = listPositions(obtainDimensions(m_rowCount, count - m_rowCount));
    if (count == 0) {
        makeTable(table,
                  {"SELECT 0 AS level, " + m_builder.obtainFactValues() + " FROM " + obtainFacts(), {}, {}});
        return;
    }
    std::string isShown;
    for (std::size_t i = 0; i < count; ++i)
        isShown += (i ? " AND (GROUPING(" : " HAVING (GROUPING(") + column("p", i) + ") = 1 OR " +
                   column("p", i) + " IS NOT NULL)";
    makeTable(table, {"SELECT GROUPING(" + positions + ") AS level, " + positions + ", " +
                          m_builder.obtainFactValues() + " FROM " + obtainFacts() +
                          " GROUP BY GROUPING SETS (" + sets + ')' + isShown,
                      {},
                      {}});
    m_session.execute("CREATE UNIQUE INDEX " + table + "_p ON " + table + " (level, " + positions + ')');
}

SqlPivotTables::Cells SqlPivotTables::obtainCells(std::size_t rowLevels, std::size_t columnLevels)
{
    const std::pair key(rowLevels, columnLevels);
    if (const auto found = m_levels.find(key); found != m_levels.end())
        return found->second;
    const std::vector<std::size_t> dimensions = obtainDimensions(rowLevels, columnLevels);
    const std::string table = obtainName("cells" + std::to_string(rowLevels) + '_' +
                                         std::to_string(columnLevels));
    const std::string positions = listPositions(dimensions);
    std::string sql = "SELECT " + positions + (positions.empty() ? "" : ", ") + m_builder.obtainFactValues() +
                      " FROM " + obtainFacts();
    for (std::size_t i = 0; i < dimensions.size(); ++i)
        sql += (i ? " AND " : " WHERE ") + column("p", dimensions[i]) + " IS NOT NULL";
    makeTable(table, {sql + (positions.empty() ? "" : " GROUP BY " + positions), {}, {}});
    if (!positions.empty())
        m_session.execute("CREATE UNIQUE INDEX " + table + "_p ON " + table + " (" + positions + ')');
    return m_levels.emplace(key, Cells{table, "1 = 1"}).first->second;
}
