#include "sql_query_builder.h"

#include <set>

#include "number_text.h"
#include "sql_dialect.h"
#include "sql_source.h"

// The steps of a query that a pivot keeps in tables, and what is told of the numbers behind members

namespace {

using Type = KXChartDataType;

std::string number(const char* name, std::size_t index) { return name + std::to_string(index); }
std::string toDouble(const std::string& expression) { return "CAST(" + expression + " AS DOUBLE PRECISION)"; }
bool isNumeric(Type type) { return type == Type::Integer || type == Type::Float; }

} // namespace

SqlQuery SqlQueryBuilder::obtainGroupsQuery()
{
    m_parameters.clear();
    m_isMemberEachGroup = false;
    SqlQuery query;
    query.text = "WITH " + _writeGroups(true) + " SELECT * FROM grouped";
    query.parameters = m_parameters;
    return query;
}

bool SqlQueryBuilder::hasValuesBehindMembers() const
{
    const std::size_t count = m_dimensionColumns.size();
    return (count == 1 || count == 2) && isNumeric(m_columns[m_dimensionColumns.back()].type) &&
           m_binding.measures[0].aggregate == SqlAggregate::Count &&
           (m_binding.measures[0].column.empty() || m_measureColumns[0] == m_dimensionColumns.back());
}

SqlQuery SqlQueryBuilder::obtainQuantileQuery(std::optional<double> share)
{
    m_parameters.clear();
    m_isMemberEachGroup = false;
    const std::size_t column = m_dimensionColumns.back();
    const bool hasGroups = m_dimensionColumns.size() > 1;
    const std::string value = toDouble(m_dialect.obtainComparable(_obtainColumn(column), m_columns[column]));
    SqlQuery query;
    query.text = "WITH valued AS (" + writeSqlSource(m_dialect, m_binding, m_columns.size()) + " SELECT " +
                 (hasGroups ? _obtainGroupKey(0) : "0") + " AS g0, " + value + " AS v FROM source" +
                 _writeConditions() + "), named AS (SELECT " + (hasGroups ? _obtainMemberText(0) : "'all'") +
                 " AS d, v FROM valued WHERE v IS NOT NULL)" +
                 (share ? m_dialect.obtainQuantiles(obtainNumberText(*share))
                        : " SELECT d, AVG(v) AS q FROM named GROUP BY d");
    query.text = "WITH answered AS (" + query.text + ") SELECT d, " + m_dialect.obtainExactNumber("q") +
                 " FROM answered";
    query.results = {SqlResultType::Text, SqlResultType::Number};
    query.parameters = m_parameters;
    return query;
}

std::string SqlQueryBuilder::obtainMembersQuery(const std::string& groups, std::size_t dimension) const
{
    // Positions are no whole numbers, so that members which fill gaps find room between them.
    const std::string index = std::to_string(dimension);
    return "WITH " + _writeNames(_writeMemberGroups(groups, dimension), {dimension}) + ", " +
           _writeMembers(dimension) + " SELECT DISTINCT named.g" + index + " AS g, placed" + index +
           ".d, placed" + index + ".n, " + toDouble("placed" + index + ".p") +
           " AS p FROM named JOIN placed" + index + " ON placed" + index + ".k = named.k" + index;
}

/** @return groups of one dimension alone, with what its members are ranked by: there are far fewer of them to
 * be named. Different values cannot be counted of what is put together. */
std::string SqlQueryBuilder::_writeMemberGroups(const std::string& groups, std::size_t dimension) const
{
    const DimensionBinding& binding = m_binding.dimensions[dimension];
    std::set<std::size_t> measures;
    if (binding.order.measure)
        measures.insert(*binding.order.measure);
    if (binding.top)
        measures.insert(binding.top->measure);
    std::string values;
    for (const std::size_t measure : measures) {
        const std::string part = number("a", measure), count = number("b", measure);
        const SqlAggregate aggregate = m_binding.measures[measure].aggregate;
        if (aggregate == SqlAggregate::DistinctCount)
            return groups;
        const char* function = aggregate == SqlAggregate::Minimum   ? "MIN("
                               : aggregate == SqlAggregate::Maximum ? "MAX("
                                                                    : "SUM(";
        const std::string own = obtainMeasureType(measure) == Type::String ? m_dialect.obtainByteOrder(part)
                                                                           : part;
        values += ", " + (function + own) + ") AS " + part;
        if (aggregate == SqlAggregate::Average)
            values += ", SUM(" + count + ") AS " + count;
    }
    const std::string key = number("g", dimension);
    return "(SELECT " + key + values + " FROM " + groups + " GROUP BY " + key + ") AS keyed";
}

std::string SqlQueryBuilder::obtainFactsQuery(const std::string& groups,
                                              const std::vector<MemberKeys>& keys) const
{
    std::string values = "grouped.r", joins;
    for (std::size_t i = 0; i < m_measureColumns.size(); ++i)
        values += number(", grouped.a", i) +
                  (m_binding.measures[i].aggregate == SqlAggregate::Average ? number(", grouped.b", i) : "") +
                  (tellsPart(i) ? number(", grouped.h", i) : "");
    for (std::size_t i = 0; i < m_dimensionColumns.size(); ++i) {
        const std::string own = number("keys", i), key = number("grouped.g", i);
        const std::string found = own + ".p";
        values += ", " +
                  (keys[i].nullPosition
                       ? "CASE WHEN " + key + " IS NULL THEN " +
                             toDouble(obtainNumberText(*keys[i].nullPosition)) + " ELSE " + found + " END"
                       : found) +
                  number(" AS p", i);
        joins += " LEFT JOIN " + keys[i].table + ' ' + own + " ON " + own + ".g = " + key;
    }
    return "SELECT " + values + " FROM " + groups + " grouped" + joins;
}

std::string SqlQueryBuilder::obtainFactValues() const
{
    std::string values;
    for (std::size_t i = 0; i < m_measureColumns.size(); ++i)
        values += (i ? ", " : "") + _obtainAggregate(i) + number(" AS m", i) +
                  (tellsPart(i) ? ", " + _obtainAggregate(i, "h") + number(" AS h", i) : "");
    return values;
}
