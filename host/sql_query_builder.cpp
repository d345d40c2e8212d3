#include "sql_query_builder.h"

#include <algorithm>
#include <numeric>

#include "host_error.h"
#include "number_text.h"
#include "sql_dialect.h"
#include "sql_source.h"
#include "typed_text.h"

namespace {

using Type = KXChartDataType;

bool isNumeric(Type type) { return type == Type::Integer || type == Type::Float; }
bool isTemporal(Type type) { return type == Type::Date || type == Type::Time || type == Type::DateTime; }
bool isClockLevel(DateLevel level)
{
    return level == DateLevel::Hour || level == DateLevel::Minute || level == DateLevel::Second ||
           level == DateLevel::HourOfDay;
}

/** @return name with a number behind it: the columns and steps of the query are numbered, never named from
 * outside */
std::string number(const char* name, std::size_t index) { return name + std::to_string(index); }
std::string place(const char* list, std::size_t index) { return list + ('[' + std::to_string(index) + ']'); }

std::string toDouble(const std::string& expression) { return "CAST(" + expression + " AS DOUBLE PRECISION)"; }
/** @return one key of an order; nulls are last either way */
std::string makeOrderKey(const std::string& expression, bool isDescending)
{
    return expression + (isDescending ? " DESC NULLS LAST" : " NULLS LAST");
}

/** @return the whole numbers among texts of numbers, as such; a fraction equals none of them */
std::vector<std::string> obtainWholeNumbers(const std::vector<std::string>& texts)
{
    std::vector<std::string> whole;
    for (const std::string& text : texts) {
        const std::optional<double> number = obtainFloat(text);
        if (obtainInteger(text))
            whole.push_back(text);
        else if (number && obtainInteger(obtainNumberText(*number)))
            whole.push_back(obtainNumberText(*number));
    }
    return whole;
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
        m_filters.push_back(_findFilter(m_binding.filters[i], place("filters", i)));
    _addFilters(m_filters, m_binding.choices);
    _addFilters(m_highlightFilters, m_binding.highlights);
    m_isMemberEachGroup = _isMemberEachGroup();
}

/** @return whether rows can be grouped by the members themselves, so that nothing has to be put together once
 * more */
bool SqlQueryBuilder::_isMemberEachGroup() const
{
    const bool countsDistinct = std::ranges::any_of(m_binding.measures, [](const MeasureBinding& measure) {
        return measure.aggregate == SqlAggregate::DistinctCount;
    });
    if (countsDistinct && m_dialect.findsDistinctFasterAsGroups())
        return false;
    if (m_binding.dimensions.empty())
        return true;
    // A float's text may be that of its neighbour, and a step of time is named from many moments.
    const Type type = m_columns[m_dimensionColumns[0]].type;
    const std::optional<TopMembers>& top = m_binding.dimensions[0].top;
    return m_binding.dimensions.size() == 1 && (type == Type::Integer || type == Type::String) &&
           !m_binding.dimensions[0].bins && !(top && top->othersLabel);
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

SqlQueryBuilder::Filter SqlQueryBuilder::_findFilter(const FilterBinding& filter,
                                                     const std::string& where) const
{
    const std::size_t column = _findColumn(filter.column, where);
    if (filter.level)
        _checkLevel(column, *filter.level, where);
    return {&filter, column, where};
}

void SqlQueryBuilder::_addFilters(std::vector<Filter>& filters,
                                  const std::vector<FilterAlternatives>& choices) const
{
    for (const FilterAlternatives& choice : choices)
        for (const std::vector<FilterBinding>& alternative : choice)
            for (const FilterBinding& filter : alternative)
                filters.push_back(_findFilter(filter, "choice of " + filter.column));
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
    if (dimension.level)
        _checkLevel(m_dimensionColumns[index], *dimension.level, where);
    if (dimension.bins && !isNumeric(type))
        throw _makeError(where,
                         '"' + m_columns[m_dimensionColumns[index]].name + "\" holds no numbers for bins");
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

void SqlQueryBuilder::_checkLevel(std::size_t column, DateLevel level, const std::string& where) const
{
    const Type type = m_columns[column].type;
    const std::string name = '"' + m_columns[column].name + '"';
    if (!isTemporal(type))
        throw _makeError(where, name + " holds no dates or times, so it has no levels");
    if (type == Type::Date && isClockLevel(level))
        throw _makeError(where, name + " holds dates without a time of day");
    if (type == Type::Time && !isClockLevel(level))
        throw _makeError(where, name + " holds times of day without a date");
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
    if (m_binding.dimensions[dimension].bins)
        return Type::Float;
    return level && !isClockLevel(*level) ? Type::Date : m_columns[m_dimensionColumns[dimension]].type;
}

std::optional<double> SqlQueryBuilder::obtainBinWidth(std::size_t dimension) const
{
    const std::optional<NumberBins>& bins = m_binding.dimensions[dimension].bins;
    return bins ? std::optional(bins->width) : std::nullopt;
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
    query.text = "WITH " + _writeGroups(false);
    std::vector<std::size_t> dimensions(m_binding.dimensions.size());
    std::iota(dimensions.begin(), dimensions.end(), std::size_t{0});
    if (!m_isMemberEachGroup)
        query.text += ", " + _writeNames("grouped", dimensions);
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i) {
        if (!m_isMemberEachGroup)
            query.text += ", " + _writeMembers(i);
        query.results.insert(query.results.end(),
                             {SqlResultType::Number, SqlResultType::Text, SqlResultType::Number});
    }
    query.text += ' ' + (m_isMemberEachGroup ? _writeSortedGroups() : _writeCells());
    query.results.push_back(SqlResultType::Number);
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i)
        query.results.push_back(isNumeric(obtainMeasureType(i)) ? SqlResultType::Number
                                                                : SqlResultType::Text);
    query.parameters = m_parameters;
    return query;
}

std::string SqlQueryBuilder::_writeGroups(bool tellsParts)
{
    // The one step that reads rows: a key of each dimension (g), the count of rows (r) and of each measure
    // what can be put together once more (a, b), of the highlighted rows alone, too (h). Only here do values
    // from outside come in.
    std::string list, keys;
    for (std::size_t i = 0; i < m_dimensionColumns.size(); ++i) {
        list += _obtainGroupKey(i) + number(" AS g", i) + ", ";
        keys += (keys.empty() ? "g" : ", g") + std::to_string(i);
    }
    list += "COUNT(*) AS r";
    for (std::size_t i = 0; i < m_measureColumns.size(); ++i) {
        const SqlAggregate aggregate = m_binding.measures[i].aggregate;
        const std::string input = _obtainMeasureInput(i);
        const auto add = [&](const std::string& value, const std::string& name) {
            list += ", " + value + " AS " + name;
            // A value of several groups counts once: it stays apart.
            if (aggregate == SqlAggregate::DistinctCount && !m_isMemberEachGroup)
                keys += (keys.empty() ? "" : ", ") + name;
        };
        add(_obtainPartial(i, input), number("a", i));
        if (aggregate == SqlAggregate::Average)
            add("COUNT(" + input + ')', number("b", i));
        if (tellsParts && tellsPart(i))
            add(_obtainPartial(i, "CASE WHEN marked = 1 THEN " + input + " END"), number("h", i));
    }
    // The table stands inside of this step: an engine may copy what it finds outside of all steps. Rows are
    // marked before the conditions, as the values of these are bound in the order of the text.
    const std::string rows = tellsParts && !m_binding.highlights.empty() ? _writeMarkedRows() : "source";
    const std::string sql = "grouped AS (" + writeSqlSource(m_dialect, m_binding, m_columns.size()) +
                            " SELECT " + list + " FROM " + rows + _writeConditions();
    return sql + (keys.empty() ? "" : " GROUP BY " + keys) + ")";
}

/** @return the rows of the source with a column that is 1 in those that the binding highlights */
std::string SqlQueryBuilder::_writeMarkedRows()
{
    std::string condition;
    auto filter = m_highlightFilters.cbegin();
    for (const FilterAlternatives& choice : m_binding.highlights)
        condition += (condition.empty() ? "(" : " AND (") + _obtainChoiceCondition(choice, filter) + ')';
    return "(SELECT source.*, CASE WHEN " + condition + " THEN 1 END AS marked FROM source) AS marked_rows";
}

std::string SqlQueryBuilder::_writeConditions()
{
    std::string sql;
    const auto require = [&](const std::string& condition) {
        sql += (sql.empty() ? " WHERE (" : " AND (") + condition + ')';
    };
    auto filter = m_filters.cbegin();
    for (std::size_t i = 0; i < m_binding.filters.size(); ++i)
        require(_obtainCondition(*filter++));
    for (const FilterAlternatives& choice : m_binding.choices)
        require(_obtainChoiceCondition(choice, filter));
    return sql;
}

/** @param filter the first one of the choice's, moved behind its last one */
std::string SqlQueryBuilder::_obtainChoiceCondition(const FilterAlternatives& choice,
                                                    std::vector<Filter>::const_iterator& filter)
{
    std::string alternatives;
    for (const std::vector<FilterBinding>& filters : choice) {
        std::string all;
        for (std::size_t i = 0; i < filters.size(); ++i)
            all += (i ? " AND (" : "(") + _obtainCondition(*filter++) + ')';
        alternatives += (alternatives.empty() ? "" : " OR ") + (all.empty() ? "1 = 1" : all);
    }
    return alternatives.empty() ? "1 = 0" : alternatives;
}

std::string SqlQueryBuilder::_writeSortedGroups() const
{
    std::string values;
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i) {
        const std::string value = _obtainAggregate(i);
        values += ", " + (isNumeric(obtainMeasureType(i)) ? m_dialect.obtainExactNumber(value) : value);
    }
    if (m_binding.dimensions.empty())
        return "SELECT r" + values + " FROM grouped";

    // A limit keeps no more of the groups than it lets through, and only these get their texts.
    const DimensionBinding& binding = m_binding.dimensions[0];
    std::string shown = "grouped";
    if (binding.top)
        shown = "(SELECT * FROM grouped ORDER BY " +
                _obtainGroupOrder(binding.top->measure, true, !binding.top->isBottom) + " LIMIT " +
                std::to_string(binding.top->count) + ") AS shown";
    const bool isNumber = isNumeric(obtainDimensionType(0));
    const std::string order = _obtainGroupOrder(
        binding.order.measure.value_or(0), binding.order.measure.has_value(), binding.order.isDescending);
    return "SELECT ROW_NUMBER() OVER (ORDER BY " + order + ") - 1 AS p, " + _obtainMemberText(0) + ", " +
           m_dialect.obtainExactNumber(toDouble(isNumber ? "g0" : "0")) + ", r" + values + " FROM " + shown +
           " ORDER BY p";
}

/** For each dimension the member's text (d), a key that is never null (k) and a number (n). */
std::string SqlQueryBuilder::_writeNames(const std::string& groups,
                                         const std::vector<std::size_t>& dimensions) const
{
    std::string sql = "named AS (SELECT *";
    for (const std::size_t i : dimensions) {
        const std::string text = _obtainMemberText(i);
        sql += ", " + text + number(" AS d", i) + ", CAST(COALESCE('=' || " + text + ", '') AS TEXT)" +
               number(" AS k", i) + ", " +
               toDouble(isNumeric(m_columns[m_dimensionColumns[i]].type) ? number("g", i) : "0") +
               number(" AS n", i);
    }
    return sql + " FROM " + groups + ')';
}

std::string SqlQueryBuilder::_writeMembers(std::size_t dimension) const
{
    // 1. One row for each member, with the measures that rank and sort it.
    const DimensionBinding& binding = m_binding.dimensions[dimension];
    const std::string index = std::to_string(dimension);
    std::string sql = "members" + index + " AS (SELECT k" + index + " AS k, MIN(d" + index + ") AS d, MIN(n" +
                      index + ") AS n, " + (binding.top ? _obtainAggregate(binding.top->measure) : "0") +
                      " AS t, " + (binding.order.measure ? _obtainAggregate(*binding.order.measure) : "0") +
                      " AS s FROM named GROUP BY k" + index + "), ";

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
    // Each group looks up its members. Written as a cross join, because SQLite keeps the order of that one
    // and would otherwise pair all members with each other first.
    std::string parts, joins, conditions, positions;
    for (std::size_t i = 0; i < m_binding.dimensions.size(); ++i) {
        const std::string placed = number("placed", i);
        parts += placed + ".p, MIN(" + placed + ".d), " +
                 m_dialect.obtainExactNumber("MIN(" + placed + ".n)") + ", ";
        joins += " CROSS JOIN " + placed;
        conditions += (i ? " AND " : " WHERE ") + placed + ".k = named" + number(".k", i);
        positions += (i ? ", " : "") + placed + ".p";
    }
    std::string sql = "SELECT " + parts + "COALESCE(SUM(r), 0)";
    for (std::size_t i = 0; i < m_binding.measures.size(); ++i) {
        const std::string value = _obtainAggregate(i);
        sql += ", " + (isNumeric(obtainMeasureType(i)) ? m_dialect.obtainExactNumber(value) : value);
    }
    sql += " FROM named" + joins + conditions;
    return positions.empty() ? sql : sql + " GROUP BY " + positions + " ORDER BY " + positions;
}

std::string SqlQueryBuilder::_obtainColumn(std::size_t column) const
{
    const std::string name = number("c", column);
    return m_columns[column].needsCast ? m_dialect.obtainCast(name, m_columns[column]) : name;
}

std::string SqlQueryBuilder::_obtainMemberText(std::size_t dimension) const
{
    const std::optional<DateLevel> level = obtainDimensionLevel(dimension);
    const Type type = m_binding.dimensions[dimension].bins ? Type::Float
                                                           : m_columns[m_dimensionColumns[dimension]].type;
    return level ? m_dialect.obtainDateBucket(number("g", dimension), type, *level)
                 : m_dialect.obtainText(number("g", dimension), type);
}

std::string SqlQueryBuilder::_obtainMeasureInput(std::size_t measure) const
{
    if (m_binding.measures[measure].column.empty())
        return "1";
    const std::size_t column = m_measureColumns[measure];
    return m_dialect.obtainComparable(_obtainColumn(column), m_columns[column]);
}

/** @param input of the rows that take part, null in others */
std::string SqlQueryBuilder::_obtainPartial(std::size_t measure, const std::string& input) const
{
    const bool isText = obtainMeasureType(measure) == Type::String;
    switch (m_binding.measures[measure].aggregate) {
    case SqlAggregate::Sum:
    case SqlAggregate::Average:
        return "SUM(" + m_dialect.obtainAddend(input, m_columns[m_measureColumns[measure]]) + ")";
    case SqlAggregate::Count:
        return "COUNT(" + input + ")";
    case SqlAggregate::DistinctCount:
        return m_isMemberEachGroup ? "COUNT(DISTINCT " + input + ")" : input;
    case SqlAggregate::Minimum:
        return "MIN(" + (isText ? m_dialect.obtainByteOrder(input) : input) + ")";
    case SqlAggregate::Maximum:
        return "MAX(" + (isText ? m_dialect.obtainByteOrder(input) : input) + ")";
    }
    return input;
}

/** @param partial the columns of groups that are put together: a for all rows, h for the highlighted ones */
std::string SqlQueryBuilder::_obtainAggregate(std::size_t measure, const char* partial) const
{
    const std::string part = number(partial, measure), count = number("b", measure);
    const Type type = obtainMeasureType(measure);
    const auto gather = [this](const char* function, const std::string& input) {
        return m_isMemberEachGroup ? input : function + ('(' + input + ')');
    };
    const auto finish = [&](const char* function) {
        const std::string value = gather(function,
                                         type == Type::String ? m_dialect.obtainByteOrder(part) : part);
        return isNumeric(type) ? toDouble(value) : m_dialect.obtainText(value, type);
    };
    switch (m_binding.measures[measure].aggregate) {
    case SqlAggregate::Sum:
        return gather("SUM", toDouble(part));
    case SqlAggregate::Average:
        return gather("SUM", toDouble(part)) + " / " + toDouble("NULLIF(" + gather("SUM", count) + ", 0)");
    case SqlAggregate::Count:
        return "COALESCE(" + toDouble(gather("SUM", part)) + ", 0)";
    case SqlAggregate::DistinctCount:
        return gather("COUNT", (m_isMemberEachGroup ? "" : "DISTINCT ") + part);
    case SqlAggregate::Minimum:
        return finish("MIN");
    case SqlAggregate::Maximum:
        return finish("MAX");
    }
    return part;
}

std::string SqlQueryBuilder::_obtainGroupKey(std::size_t dimension) const
{
    const SqlColumn& column = m_columns[m_dimensionColumns[dimension]];
    const std::string own = _obtainColumn(m_dimensionColumns[dimension]);
    if (const std::optional<NumberBins>& bins = m_binding.dimensions[dimension].bins) {
        const std::string origin = toDouble(obtainNumberText(bins->origin));
        const std::string width = toDouble(obtainNumberText(bins->width));
        const std::string value = toDouble(m_dialect.obtainComparable(own, column));
        return origin + " + " + width + " * " +
               m_dialect.obtainFloor("((" + value + " - " + origin + ") / " + width + ')');
    }
    return m_isMemberEachGroup ? m_dialect.obtainComparable(own, column)
                               : m_dialect.obtainGroupKey(own, column, obtainDimensionLevel(dimension));
}

/** @return the order of groups that are members: that of a measure first, where it is wanted, then their own,
 * by which members of equal measures stand as ever */
std::string SqlQueryBuilder::_obtainGroupOrder(std::size_t measure, bool isByMeasure, bool isDescending) const
{
    const bool isOwnDescending = m_binding.dimensions[0].order.isDescending;
    const bool isNumber = isNumeric(obtainDimensionType(0));
    // A part that is the value already needs no conversion for each of perhaps a million groups.
    const bool isValue = isNumeric(obtainMeasureType(measure)) &&
                         m_binding.measures[measure].aggregate != SqlAggregate::Average;
    const std::string value = isValue ? number("a", measure) : _obtainAggregate(measure);
    return (isByMeasure ? _obtainMeasureOrder(value, measure, isDescending) : "") +
           makeOrderKey(isNumber ? "g0" : m_dialect.obtainByteOrder("g0"), isOwnDescending);
}

std::string SqlQueryBuilder::_obtainOwnOrder(std::size_t dimension) const
{
    const bool byNumber = isNumeric(m_columns[m_dimensionColumns[dimension]].type);
    const std::string own = byNumber ? "n" : m_dialect.obtainByteOrder("d");
    return makeOrderKey(own, m_binding.dimensions[dimension].order.isDescending) + ", " +
           m_dialect.obtainByteOrder("k");
}

std::string SqlQueryBuilder::_obtainMeasureOrder(const std::string& value, std::size_t measure,
                                                 bool isDescending) const
{
    const bool isText = !isNumeric(obtainMeasureType(measure));
    return makeOrderKey(isText ? m_dialect.obtainByteOrder(value) : value, isDescending) + ", ";
}

std::string SqlQueryBuilder::_obtainCondition(const Filter& filter)
{
    const SqlColumn& column = m_columns[filter.column];
    const std::string own = _obtainColumn(filter.column);
    const std::string value = m_dialect.obtainComparable(own, column);
    const std::string ordered = column.type == Type::String ? m_dialect.obtainByteOrder(value) : value;
    const auto parameter = [&] { return _obtainParameter(filter, column.type); };
    switch (filter.binding->operation) {
    case FilterOperation::Equal:
        return value + " = " + parameter();
    case FilterOperation::NotEqual:
        return own + " IS NULL OR " + value + " <> " + parameter();
    case FilterOperation::Less:
        return ordered + " < " + parameter();
    case FilterOperation::LessOrEqual:
        return ordered + " <= " + parameter();
    case FilterOperation::Greater:
        return ordered + " > " + parameter();
    case FilterOperation::GreaterOrEqual:
        return ordered + " >= " + parameter();
    case FilterOperation::In:
        return _obtainListCondition(filter, false);
    case FilterOperation::NotIn:
        return _obtainListCondition(filter, true);
    case FilterOperation::Contains:
        return m_dialect.obtainContains(m_dialect.obtainText(own, column.type),
                                        _obtainParameter(filter, Type::String));
    case FilterOperation::IsNull:
        return own + " IS NULL";
    case FilterOperation::IsNotNull:
        return own + " IS NOT NULL";
    }
    return "1 = 1";
}

std::string SqlQueryBuilder::_obtainListCondition(const Filter& filter, bool isOutside)
{
    // A step of time is compared by the text that names it.
    const std::string own = _obtainColumn(filter.column);
    SqlColumn column = m_columns[filter.column];
    std::string value = m_dialect.obtainComparable(own, column);
    if (filter.binding->level) {
        value = m_dialect.obtainDateBucket(own, column.type, *filter.binding->level);
        column = {column.name, Type::String, "", false};
    }
    // Nothing is asked of a null but whether it is one: a comparison would leave it out either way.
    const bool hasNull = filter.binding->hasNull;
    if (filter.binding->values.empty() && !hasNull)
        return isOutside ? "1 = 1" : "1 = 0";
    const std::string nullTest = value + (isOutside == hasNull ? " IS NOT NULL" : " IS NULL");
    if (filter.binding->values.empty())
        return nullTest;
    const std::string isIn = m_dialect.obtainIsInList(value, _obtainListParameter(filter, column.type),
                                                      column);
    if (isOutside)
        return nullTest + (hasNull ? " AND NOT " : " OR NOT ") + isIn;
    return hasNull ? nullTest + " OR " + isIn : isIn;
}

std::string SqlQueryBuilder::_obtainParameter(const Filter& filter, Type type)
{
    const std::vector<std::string>& values = filter.binding->values;
    if (values.size() != 1)
        throw _makeError(filter.place, "one value is needed");
    // A fraction is compared with whole numbers as what it is.
    const bool isFraction = type == Type::Integer && !obtainInteger(values[0]);
    const Type valueType = isFraction ? Type::Float : type;
    const std::string text = _obtainFilterText(filter, values[0], valueType);
    return m_dialect.obtainParameter(_addParameter(text), valueType, m_columns[filter.column]);
}

std::string SqlQueryBuilder::_obtainListParameter(const Filter& filter, Type type)
{
    std::vector<std::string> values;
    values.reserve(filter.binding->values.size());
    for (const std::string& value : filter.binding->values)
        values.push_back(_obtainFilterText(filter, value, type == Type::Integer ? Type::Float : type));
    return _addParameter(
        m_dialect.obtainListText(type == Type::Integer ? obtainWholeNumbers(values) : values));
}

std::string SqlQueryBuilder::_obtainFilterText(const Filter& filter, const std::string& value,
                                               Type type) const
{
    const std::optional<std::string> text = obtainTypedText(value, type);
    if (!text)
        throw _makeError(filter.place, '"' + value + "\" cannot be compared with the column \"" +
                                           filter.binding->column + '"');
    return *text;
}

std::string SqlQueryBuilder::_addParameter(const std::string& text)
{
    m_parameters.push_back(text);
    return number(":p", m_parameters.size() - 1);
}
