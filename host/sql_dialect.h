#pragma once

#include <string>
#include <vector>

#include "date_level.h"
#include "kx_chart_data_type.h"

/** What one database engine writes in its own way. Arguments named expression are SQL that this host made
 * itself; names from outside go through quoteIdentifier, values from outside are bound and never written into
 * SQL. */
class SqlDialect {
public:
    virtual ~SqlDialect() = default;

    /** @return the statements that a new session begins with */
    virtual std::vector<std::string> obtainSetUp() const { return {}; }
    /** @return name as one identifier, whatever is in it; throws HostError where the engine cannot take it */
    virtual std::string quoteIdentifier(const std::string& name) const = 0;

    // The columns of a table
    /** @return what to declare for a column of type */
    virtual std::string obtainTypeName(KXChartDataType type) const = 0;
    /** @return a query for name and declared type of each column, in order; its one parameter is the table's
     * name */
    virtual std::string obtainColumnsQuery() const = 0;
    /** @return the charts' type of a declared one; String for what charts cannot compute with */
    virtual KXChartDataType obtainDataType(const std::string& declaredType) const = 0;

    // Values
    /** @return the text of expression, a date as YYYY-MM-DD, a time as HH:MM:SS, a date-time as both */
    virtual std::string obtainText(const std::string& expression, KXChartDataType type) const = 0;
    /** @return the text of the beginning of the step in which expression falls: YYYY-MM-DD from day up and
     * HH:MM:SS or both below; YYYY Qn for a quarter; YYYY Wnn for a week, weeks begin on Monday and days
     * before the first Monday are week 00; for a day of the week that day of the week of Monday, 2001-01-01
     */
    virtual std::string obtainDateBucket(const std::string& expression, KXChartDataType type,
                                         DateLevel level) const = 0;
    /** @return a number, null or not, in a form that reaches the result with all of its digits */
    virtual std::string obtainExactNumber(const std::string& expression) const { return expression; }
    /** @return a text expression that sorts by its bytes */
    virtual std::string obtainByteOrder(const std::string& expression) const { return expression; }

    // Conditions
    /** @return a text parameter as a value to compare with a column of type */
    virtual std::string obtainParameter(const std::string& placeholder, KXChartDataType type) const = 0;
    /** @return a condition: the text of expression holds the text of part */
    virtual std::string obtainContains(const std::string& expression, const std::string& part) const = 0;
};
