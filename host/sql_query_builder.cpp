#include "sql_query_builder.h"

#include <algorithm>

#include "host_error.h"
#include "number_text.h"
#include "sql_dialect.h"
#include "temporal_text.h"

namespace {

using Type = KXChartDataType;

bool isNumeric(Type type) { return type == Type::Integer || type == Type::Float; }
bool isTemporal(Type type) { return type == Type::Date || type == Type::Time || type == Type::DateTime; }
bool isClockLevel(DateLevel level)
{
    return level == DateLevel::Hour || level == DateLevel::Minute || level == DateLevel::Second;
}

/** @return name with a number behind it: the columns and steps of the query are numbered, never named from
 * outside */
std::string number(const char* name, std::size_t index) { return name + std::to_string(index); }
std::string place(const char* list, std::size_t index) { return list + ('[' + std::to_string(index) + ']'); }

std::string toDouble(const std::string& expression) { return "CAST(" + expression + " AS DOUBLE PRECISION)"; }
std::string nullsLast(const std::string& expression)
{
    return "CASE WHEN " + expression + " IS NULL THEN 1 ELSE 0 END, ";
}

/** @return text in the one form of its type, nothing when it is not of that type */
std::optional<std::string> normaliseText(const std::string& text, Type type)
{
    switch (type) {
    case Type::Integer:
        return obtainInteger(text) ? std::optional(text) : std::nullopt;
    case Type::Float:
        return obtainFloat(text) ? std::optional(text) : std::nullopt;
    case Type::Date:
        return obtainDateText(text);
    case Type::Time:
        return obtainTimeText(text);
    case Type::DateTime:
        return obtainDateTimeText(text);
    case Type::String:
        break;
    }
    return text;
}

} // namespace

SqlQueryBuilder::SqlQueryBuilder(const SqlDialect& dialect, const DataBinding& binding,
                                 std::vector<SqlColumn> columns)
    : m_dialect(dialect), m_binding(binding), m_columns(std::move(columns))
{
    if (m_binding.measures.empty())
        throw _makeError("measures", "a binding needs one measure at least");
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i) {
        const std::string& column = m_binding.measures[i].column;
        m_measureColumns.push_back(column.empty() ? 0 : _findColumn(column, place("measures", i)));
        _checkMeasure(i);
    }
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i) {
        m_dimensionColumns.push_back(_findColumn(m_binding.dimensions[i].column, place("dimensions", i)));
        _checkDimension(i);
    }
    for (std::size_t i = 0; i < m_binding.filters.size(); ++i)
        m_filterColumns.push_back(_findColumn(m_binding.filters[i].column, place("filters", i)));
}

HostError SqlQueryBuilder::_makeError(const std::string& where, const std::string& cause) const
{
    return {m_binding.name, where, cause};
}

std::size_t SqlQueryBuilder::_findColumn(const std::string& name, const std::string& where) const
{
    const auto found = std::find_if(m_columns.begin(), m_columns.end(),
                                    [&](const SqlColumn& c) { return c.name == name; });
    if (found != m_columns.end())
        return static_cast<std::size_t>(found - m_columns.begin());

    constexpr std::size_t mostNames = 12;
    std::string names;
    for (std::size_t i = 0; i < std::min(m_columns.size(), mostNames); ++i)
        names += (i ? ", " : "") + m_columns[i].name;
    throw _makeError(where, "no column \"" + name + "\" in table \"" + m_binding.table + "\"; it has " +
                                names + (m_columns.size() > mostNames ? ", ..." : ""));
}

void SqlQueryBuilder::_checkMeasure(std::size_t index) const
{
    const MeasureBinding& measure = m_binding.measures[index];
    if (measure.column.empty() && measure.aggregate != SqlAggregate::Count)
        throw _makeError(place("measures", index), "only a count does without a column");
    const bool needsNumbers = measure.aggregate == SqlAggregate::Sum ||
                              measure.aggregate == SqlAggregate::Average;
    if (needsNumbers && !isNumeric(m_columns[m_measureColumns[index]].type))
        throw _makeError(place("measures", index), "\"" + measure.column + "\" holds no numbers to add up");
}

void SqlQueryBuilder::_checkDimension(std::size_t index) const
{
    const DimensionBinding& dimension = m_binding.dimensions[index];
    const std::string where = place("dimensions", index);
    const Type type = m_columns[m_dimensionColumns[index]].type;
    if (dimension.level && !isTemporal(type))
        throw _makeError(where, "\"" + dimension.column + "\" holds no dates or times, so it has no levels");
    if (dimension.level && type == Type::Date && isClockLevel(*dimension.level))
        throw _makeError(where, "\"" + dimension.column + "\" holds dates without a time of day");
    if (dimension.level && type == Type::Time && !isClockLevel(*dimension.level))
        throw _makeError(where, "\"" + dimension.column + "\" holds times of day without a date");
    if (dimension.shouldFillGaps && (!isTemporal(type) || dimension.order.measure || dimension.top))
        throw _makeError(where, "gaps can be filled in dates and times in their own order only");
    for (const std::size_t measure :
         {dimension.order.measure.value_or(0), dimension.top ? dimension.top->measure : std::size_t{0}}) {
        if (measure >= m_binding.measures.size())
            throw _makeError(where, "there is no measure " + std::to_string(measure));
    }
    if (dimension.top && (dimension.top->count == 0 || dimension.top->count > 1'000'000'000))
        throw _makeError(where + ".top", "a count from 1 to 1000000000 is needed");
}

std::optional<DateLevel> SqlQueryBuilder::obtainDimensionLevel(std::size_t dimension) const
{
    const Type type = m_columns[m_dimensionColumns[dimension]].type;
    if (!isTemporal(type))
        return std::nullopt;
    return m_binding.dimensions[dimension].level.value_or(type == Type::Date ? DateLevel::Day
                                                                             : DateLevel::Second);
}

KXChartDataType SqlQueryBuilder::obtainDimensionType(std::size_t dimension) const
{
    const std::optional<DateLevel> level = obtainDimensionLevel(dimension);
    return level && !isClockLevel(*level) ? Type::Date : m_columns[m_dimensionColumns[dimension]].type;
}

KXChartDataType SqlQueryBuilder::obtainMeasureType(std::size_t measure) const
{
    switch (m_binding.measures[measure].aggregate) {
    case SqlAggregate::Count:
    case SqlAggregate::DistinctCount:
        return Type::Integer;
    case SqlAggregate::Average:
        return Type::Float;
    default:
        return m_columns[m_measureColumns[measure]].type;
    }
}

SqlQuery SqlQueryBuilder::obtainQuery()
{
    m_parameters.clear();
    SqlQuery query;
    query.text = "WITH " + _writeRows();
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i) {
        query.text += ", " + _writeMembers(i);
        query.results.insert(query.results.end(),
                             {SqlResultType::Number, SqlResultType::Text, SqlResultType::Number});
    }
    query.text += ' ' + _writeCells();
    query.results.push_back(SqlResultType::Number);
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i)
        query.results.push_back(isNumeric(obtainMeasureType(i)) ? SqlResultType::Number
                                                                : SqlResultType::Text);
    query.parameters = m_parameters;
    return query;
}

std::string SqlQueryBuilder::_writeRows()
{
    // 1. Give the columns names of our own.
    std::string names;
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        names += (i ? ", c" : "c") + std::to_string(i);
    std::string sql = "source(" + names + ") AS (SELECT * FROM " +
                      m_dialect.quoteIdentifier(m_binding.table) + "), ";

    // 2. For each dimension the member's text (d), a key that is never null (k) and a number (n); each
    // measure (m).
    std::vector<std::string> list;
    for (std::size_t i = 0; i < m_dimensionColumns.size(); ++i) {
        const std::string text = _obtainMemberText(i);
        const std::size_t column = m_dimensionColumns[i];
        list.push_back(text + number(" AS d", i));
        list.push_back("CAST(COALESCE('=' || " + text + ", '') AS TEXT)" + number(" AS k", i));
        list.push_back(toDouble(isNumeric(m_columns[column].type) ? number("c", column) : "0") +
                       number(" AS n", i));
    }
    for (std::size_t i = 0; i < m_measureColumns.size(); ++i)
        list.push_back(_obtainMeasureInput(i) + number(" AS m", i));
    for (std::size_t i = 0; i < list.size(); ++i)
        sql += (i ? ", " : "filtered AS (SELECT ") + list[i];

    // 3. Only here do values from outside come in, so that parameters are numbered in the order of the text.
    sql += " FROM source";
    for (std::size_t i = 0; i < m_binding.filters.size(); ++i)
        sql += (i ? " AND (" : " WHERE (") + _obtainCondition(i) + ')';
    return sql + ')';
}

std::string SqlQueryBuilder::_writeMembers(std::size_t dimension) const
{
    // 1. One row for each member, with the measures that rank and sort it.
    const DimensionBinding& binding = m_binding.dimensions[dimension];
    const std::string index = std::to_string(dimension);
    std::string sql = "members" + index + " AS (SELECT k" + index + " AS k, MIN(d" + index + ") AS d, MIN(n" +
                      index + ") AS n, " + _obtainAggregate(binding.top ? binding.top->measure : 0) +
                      " AS t, " + _obtainAggregate(binding.order.measure.value_or(0)) +
                      " AS s FROM filtered GROUP BY k" + index + "), ";

    // 2. Those behind the first N are outside (x = 1).
    const std::string own = _obtainOwnOrder(dimension);
    const std::string outside =
        !binding.top ? "0"
                     : "CASE WHEN ROW_NUMBER() OVER (ORDER BY " +
                           _obtainMeasureOrder("t", binding.top->measure, !binding.top->isBottom) + own +
                           ") > " + std::to_string(binding.top->count) + " THEN 1 ELSE 0 END";
    sql += "ranked" + index + " AS (SELECT k, d, n, s, " + outside + " AS x FROM members" + index + "), ";

    // 3. Positions in display order; what is outside shares the last one or goes. The grouping changes
    // nothing: the result of a window is no more than a list to SQLite, a grouped one it looks up by key.
    const std::string order = binding.order.measure ? _obtainMeasureOrder("s", *binding.order.measure,
                                                                          binding.order.isDescending) +
                                                          own
                                                    : own;
    const std::string last = std::to_string(binding.top ? binding.top->count : 0);
    sql += "ordered" + index + " AS (SELECT k, d, n, CASE WHEN x = 1 THEN " + last +
           " ELSE ROW_NUMBER() OVER (ORDER BY x, " + order + ") - 1 END AS p FROM ranked" + index +
           (binding.top && !binding.top->othersLabel ? " WHERE x = 0), " : "), ");
    return sql + "placed" + index + " AS (SELECT k, MIN(d) AS d, MIN(n) AS n, MIN(p) AS p FROM ordered" +
           index + " GROUP BY k)";
}

std::string SqlQueryBuilder::_writeCells() const
{
    // Each row looks up its members. Written as a cross join, because SQLite keeps the order of that one and
    // would otherwise pair all members with each other first.
    std::string parts, joins, conditions, positions;
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i) {
        const std::string placed = number("placed", i);
        parts += placed + ".p, MIN(" + placed + ".d), " +
                 m_dialect.obtainExactNumber("MIN(" + placed + ".n)") + ", ";
        joins += " CROSS JOIN " + placed;
        conditions += (i ? " AND " : " WHERE ") + placed + ".k = filtered" + number(".k", i);
        positions += (i ? ", " : "") + placed + ".p";
    }
    std::string sql = "SELECT " + parts + "COUNT(*)";
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i) {
        const std::string value = _obtainAggregate(i);
        sql += ", " + (isNumeric(obtainMeasureType(i)) ? m_dialect.obtainExactNumber(value) : value);
    }
    sql += " FROM filtered" + joins + conditions;
    return positions.empty() ? sql : sql + " GROUP BY " + positions + " ORDER BY " + positions;
}

std::string SqlQueryBuilder::_obtainMemberText(std::size_t dimension) const
{
    const std::size_t column = m_dimensionColumns[dimension];
    const std::optional<DateLevel> level = obtainDimensionLevel(dimension);
    const Type type = m_columns[column].type;
    return level ? m_dialect.obtainDateBucket(number("c", column), type, *level)
                 : m_dialect.obtainText(number("c", column), type);
}

std::string SqlQueryBuilder::_obtainMeasureInput(std::size_t measure) const
{
    if (m_binding.measures[measure].column.empty())
        return "1";
    const std::size_t column = m_measureColumns[measure];
    const Type type = m_columns[column].type;
    return isNumeric(type) ? toDouble(number("c", column)) : m_dialect.obtainText(number("c", column), type);
}

std::string SqlQueryBuilder::_obtainAggregate(std::size_t measure) const
{
    const std::string input = number("m", measure);
    const bool isText = !isNumeric(obtainMeasureType(measure));
    switch (m_binding.measures[measure].aggregate) {
    case SqlAggregate::Sum:
        return "SUM(" + input + ")";
    case SqlAggregate::Average:
        return "AVG(" + input + ")";
    case SqlAggregate::Count:
        return "COUNT(" + input + ")";
    case SqlAggregate::DistinctCount:
        return "COUNT(DISTINCT " + input + ")";
    case SqlAggregate::Minimum:
        return "MIN(" + (isText ? m_dialect.obtainByteOrder(input) : input) + ")";
    case SqlAggregate::Maximum:
        return "MAX(" + (isText ? m_dialect.obtainByteOrder(input) : input) + ")";
    }
    return input;
}

std::string SqlQueryBuilder::_obtainOwnOrder(std::size_t dimension) const
{
    const bool byNumber = isNumeric(m_columns[m_dimensionColumns[dimension]].type);
    const std::string own = byNumber ? "n" : m_dialect.obtainByteOrder("d");
    return nullsLast("d") + own + (m_binding.dimensions[dimension].order.isDescending ? " DESC, " : ", ") +
           m_dialect.obtainByteOrder("k");
}

std::string SqlQueryBuilder::_obtainMeasureOrder(const std::string& value, std::size_t measure,
                                                 bool isDescending) const
{
    const bool isText = !isNumeric(obtainMeasureType(measure));
    return nullsLast(value) + (isText ? m_dialect.obtainByteOrder(value) : value) +
           (isDescending ? " DESC, " : ", ");
}

std::string SqlQueryBuilder::_obtainCondition(std::size_t filter)
{
    const FilterBinding& binding = m_binding.filters[filter];
    const std::string column = number("c", m_filterColumns[filter]);
    const Type type = m_columns[m_filterColumns[filter]].type;
    const std::string value = type == Type::String
                                  ? m_dialect.obtainByteOrder(m_dialect.obtainText(column, type))
                                  : column;
    const auto parameters = [&] { return _obtainParameters(filter, type); };
    switch (binding.operation) {
    case FilterOperation::Equal:
        return value + " = " + parameters();
    case FilterOperation::NotEqual:
        return column + " IS NULL OR " + value + " <> " + parameters();
    case FilterOperation::Less:
        return value + " < " + parameters();
    case FilterOperation::LessOrEqual:
        return value + " <= " + parameters();
    case FilterOperation::Greater:
        return value + " > " + parameters();
    case FilterOperation::GreaterOrEqual:
        return value + " >= " + parameters();
    case FilterOperation::In:
        return value + " IN (" + parameters() + ")";
    case FilterOperation::NotIn:
        return column + " IS NULL OR " + value + " NOT IN (" + parameters() + ")";
    case FilterOperation::Contains:
        return m_dialect.obtainContains(m_dialect.obtainText(column, type),
                                        _obtainParameters(filter, Type::String));
    case FilterOperation::IsNull:
        return column + " IS NULL";
    case FilterOperation::IsNotNull:
        return column + " IS NOT NULL";
    }
    return "1 = 1";
}

std::string SqlQueryBuilder::_obtainParameters(std::size_t filter, Type type)
{
    const FilterBinding& binding = m_binding.filters[filter];
    const bool isList = binding.operation == FilterOperation::In ||
                        binding.operation == FilterOperation::NotIn;
    if (binding.values.empty() || (!isList && binding.values.size() != 1))
        throw _makeError(place("filters", filter),
                         isList ? "a value at least is needed" : "one value is needed");

    std::string list;
    for (const std::string& value : binding.values) {
        // A fraction is compared with whole numbers as what it is.
        const bool isFraction = type == Type::Integer && !obtainInteger(value);
        const Type valueType = isFraction ? Type::Float : type;
        const std::optional<std::string> text = normaliseText(value, valueType);
        if (!text)
            throw _makeError(place("filters", filter), "\"" + value +
                                                           "\" cannot be compared with the column \"" +
                                                           binding.column + "\"");
        list += (list.empty() ? "" : ", ") +
                m_dialect.obtainParameter(number(":p", m_parameters.size()), valueType);
        m_parameters.push_back(*text);
    }
    return list;
}
