#pragma once

#include <optional>
#include <string>
#include <vector>

#include "data_binding.h"
#include "sql_column.h"
#include "sql_query.h"

class HostError;
class SqlDialect;

/** Writes the one query that answers a binding: filtering, bucketing, grouping, ranking, sorting and top-N
 * are the database's work. It reads the rows once and groups them; ranking and gathering are over the groups.
 * Where each group is a member already, it only sorts them.
 * Columns go by their number in the table, so that their names never enter the text; values are parameters.
 *
 *  A row of the result is a cell: for each dimension the member's position (from 0, in display order), its
 * text and its number (0 where the column holds none); then the count of rows; then each measure, as a number
 * or a text after its type. Rows are sorted by position, first dimension first. Without dimensions there is
 * exactly one row. */
class SqlQueryBuilder {
public:
    /** Throws HostError where the binding and the table's columns do not go together. */
    SqlQueryBuilder(const SqlDialect& dialect, const DataBinding& binding, std::vector<SqlColumn> columns);

    SqlQuery obtainQuery();

    // The same in steps that a pivot keeps, to group what comes of them in several ways
    /** @return the one that reads the rows: groups that are put together once more, with what is to be told
     * of the rows that the binding highlights */
    SqlQuery obtainGroupsQuery();
    /** @param groups a table of what the groups' query answers
     *  @return for each key (g) of a dimension its member's position (p), text (d) and number (n) */
    std::string obtainMembersQuery(const std::string& groups, std::size_t dimension) const;
    /** The members of a dimension by their keys. */
    struct MemberKeys {
        std::string table;
        std::optional<double> nullPosition; // a null equals no key
    };
    /** @param keys of each dimension
     *  @return the groups with the positions of their members (p0, p1 and so on), null for one that is left
     * out */
    std::string obtainFactsQuery(const std::string& groups, const std::vector<MemberKeys>& keys) const;
    /** @return what the measures (m0, m1 and so on) are over facts that are grouped, and of those that have
     * parts the highlighted one (h0, h1 and so on) */
    std::string obtainFactValues() const;
    /** @return whether the part of a measure is told that belongs to what the binding highlights */
    bool tellsPart(std::size_t measure) const
    {
        return !m_binding.highlights.empty() && hasParts(m_binding.measures[measure].aggregate);
    }

    /** @return whether there are numbers behind the members of the last dimension, of which the first measure
     * counts the rows */
    bool hasValuesBehindMembers() const;
    /** @param share 0 to 1; without it the mean
     *  @return of each member of the first of two dimensions, or of all where there is one, the text (null
     * for a null) and this quantile of the numbers behind the last dimension's members */
    SqlQuery obtainQuantileQuery(std::optional<double> share);

    std::size_t getDimensionCount() const { return m_dimensionColumns.size(); }
    std::size_t getMeasureCount() const { return m_measureColumns.size(); }

    /** @return the type of a dimension's members: Date above hours, else the column's */
    KXChartDataType obtainDimensionType(std::size_t dimension) const;
    /** @return the level that members are cut down to, nothing for a column without dates and times */
    std::optional<DateLevel> obtainDimensionLevel(std::size_t dimension) const;
    /** @return how wide the bins of numbers are that are its members, nothing for other members */
    std::optional<double> obtainBinWidth(std::size_t dimension) const;
    KXChartDataType obtainMeasureType(std::size_t measure) const;

    // Where a cell's parts stand in the result
    static std::size_t obtainPositionColumn(std::size_t dimension) { return dimension * 3; }
    std::size_t obtainCountColumn() const { return m_binding.dimensions.size() * 3; }
    std::size_t obtainMeasureColumn(std::size_t measure) const { return obtainCountColumn() + 1 + measure; }

private:
    /** A condition of the binding's, or one of a choice. */
    struct Filter {
        const FilterBinding* binding;
        std::size_t column;
        std::string place;
    };

    bool _isMemberEachGroup() const;
    Filter _findFilter(const FilterBinding& filter, const std::string& place) const;
    void _addFilters(std::vector<Filter>& filters, const std::vector<FilterAlternatives>& choices) const;
    void _checkDimension(std::size_t index) const;
    void _checkLevel(std::size_t column, DateLevel level, const std::string& place) const;
    void _checkMeasure(std::size_t index) const;
    std::size_t _findColumn(const std::string& name, const std::string& place) const;
    HostError _makeError(const std::string& place, const std::string& cause) const;

    std::string _obtainColumn(std::size_t column) const;
    std::string _obtainMemberText(std::size_t dimension) const;
    std::string _obtainMeasureInput(std::size_t measure) const;
    std::string _obtainPartial(std::size_t measure, const std::string& input) const;
    std::string _obtainAggregate(std::size_t measure, const char* partial = "a") const;
    std::string _obtainGroupKey(std::size_t dimension) const;
    std::string _obtainOwnOrder(std::size_t dimension) const;
    std::string _obtainGroupOrder(std::size_t measure, bool isByMeasure, bool isDescending) const;
    std::string _obtainMeasureOrder(const std::string& value, std::size_t measure, bool isDescending) const;
    std::string _obtainChoiceCondition(const FilterAlternatives& choice,
                                       std::vector<Filter>::const_iterator& filter);
    std::string _obtainCondition(const Filter& filter);
    std::string _obtainListCondition(const Filter& filter, bool isOutside);
    std::string _obtainParameter(const Filter& filter, KXChartDataType type);
    std::string _obtainListParameter(const Filter& filter, KXChartDataType type);
    std::string _obtainFilterText(const Filter& filter, const std::string& value, KXChartDataType type) const;
    std::string _addParameter(const std::string& text);

    std::string _writeGroups(bool tellsParts);
    std::string _writeMarkedRows();
    std::string _writeConditions();
    std::string _writeSortedGroups() const;
    std::string _writeNames(const std::string& groups, const std::vector<std::size_t>& dimensions) const;
    std::string _writeMemberGroups(const std::string& groups, std::size_t dimension) const;
    std::string _writeMembers(std::size_t dimension) const;
    std::string _writeCells() const;

    const SqlDialect& m_dialect;
    const DataBinding& m_binding;
    std::vector<SqlColumn> m_columns;
    std::vector<std::size_t> m_dimensionColumns;
    std::vector<std::size_t> m_measureColumns; // of no meaning for a count of rows
    std::vector<Filter> m_filters;             // the binding's own, then those of its choices in their order
    std::vector<Filter> m_highlightFilters;    // of what it highlights, likewise
    bool m_isMemberEachGroup = false;
    std::vector<std::string> m_parameters;
};
