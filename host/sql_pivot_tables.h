#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "data_binding.h"
#include "sql_query_builder.h"

class SqlSession;

/**
 * The cells of a pivot in temporary tables of the session. The rows of the data are read once, into groups;
 * the members of each dimension get their positions once; each level of totals is grouped from these groups,
 * so that averages and counts of different values are right in totals, too: all levels by one query where the
 * engine has grouping sets, else each when it is first needed. What is shown is then found by positions.
 */
class SqlPivotTables {
public:
    /** The cells of one level: columns p0, p1 and so on for the members' positions, m0, m1 and so on for the
     * measures, h0, h1 and so on for the highlighted parts of those that have them. */
    struct Cells {
        std::string table;
        std::string condition; // what is true of this level's alone, the table being called c
    };

    /** @param session outlives this object
     *  @param rowCount how many of the binding's dimensions are the rows'. Throws HostError when the database
     * refuses. */
    SqlPivotTables(SqlSession& session, DataBinding binding, std::size_t rowCount);
    /** Takes the tables out of the database. */
    ~SqlPivotTables();
    SqlPivotTables(const SqlPivotTables&) = delete;
    SqlPivotTables& operator=(const SqlPivotTables&) = delete;

    SqlSession& getSession() const { return m_session; }
    const DataBinding& getBinding() const { return m_binding; }
    const SqlQueryBuilder& getBuilder() const { return m_builder; }
    /** @return whether no row of the data takes part */
    bool isEmpty() const { return m_isEmpty; }

    /** @return the cells grouped by the first dimensions of the rows and of the columns; throws HostError
     * likewise */
    Cells obtainCells(std::size_t rowLevels, std::size_t columnLevels);
    /** @return the numbers of the dimensions that these are grouped by */
    std::vector<std::size_t> obtainDimensions(std::size_t rowLevels, std::size_t columnLevels) const;
    /** @return the table of the members of a dimension: position p, text d, number n; one that fills a gap
     * stands at a position between */
    std::string obtainMembers(std::size_t dimension) const
    {
        return obtainName("members" + std::to_string(dimension));
    }
    std::string obtainFacts() const { return obtainName("facts"); }

    /** @return the name of a table of this pivot */
    std::string obtainName(const std::string& part) const { return m_prefix + part; }
    /** Makes a table, in the place of one that has its name. */
    void makeTable(const std::string& name, SqlQuery query);

private:
    void _make();
    void _dropAll();
    SqlQueryBuilder::MemberKeys _placeMembers(const std::string& groups, std::size_t dimension);
    void _fillGaps(const std::string& keys, std::size_t dimension);
    void _makeAllLevels();
    void _drop(const std::string& name);

    SqlSession& m_session;
    DataBinding m_binding;
    SqlQueryBuilder m_builder;
    std::size_t m_rowCount;
    std::string m_prefix;
    std::vector<std::string> m_tables; // what was made
    std::map<std::pair<std::size_t, std::size_t>, Cells> m_levels;
    bool m_isEmpty = true;
};
