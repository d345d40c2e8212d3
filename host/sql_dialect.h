#pragma once

#include <optional>
#include <string>
#include <vector>

#include "date_level.h"
#include "sql_column.h"
#include "sql_type_trust.h"

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
    /** @return a query for name and declared type of each column, in order; its parameters are the table's
     * name and its schema, which is empty for the one that the engine finds by itself */
    virtual std::string obtainColumnsQuery() const = 0;
    /** @return the charts' type of a declared one; String for what charts cannot compute with */
    virtual KXChartDataType obtainDataType(const std::string& declaredType) const = 0;
    virtual SqlTypeTrust obtainTypeTrust(const std::string& /*declaredType*/) const
    {
        return SqlTypeTrust::Whole;
    }

    // Values
    /** @return expression, a value of a column that needs a cast, in the form of the column's type */
    virtual std::string obtainCast(const std::string& expression, const SqlColumn& column) const = 0;
    /** @return expression in a form that is equal and in order where its text is, and by which an index on
     * the column is found */
    virtual std::string obtainComparable(const std::string& expression, const SqlColumn& column) const = 0;
    /** @return what rows are grouped by before their members are named: cheap, and equal only where the text
     * of the member is; level is nothing for a column without dates and times */
    virtual std::string obtainGroupKey(const std::string& expression, const SqlColumn& column,
                                       std::optional<DateLevel> level) const = 0;
    /** @return the text of expression, a date as YYYY-MM-DD, a time as HH:MM:SS, a date-time as both */
    virtual std::string obtainText(const std::string& expression, KXChartDataType type) const = 0;
    /** @return the text of the beginning of the step in which expression, a value or its group key, falls:
     * YYYY-MM-DD from day up and HH:MM:SS or both below; YYYY Qn for a quarter; YYYY Wnn for a week, weeks
     * begin on Monday and days before the first Monday are week 00; for a day of the week that day of the
     * week of Monday, 2001-01-01 */
    virtual std::string obtainDateBucket(const std::string& expression, KXChartDataType type,
                                         DateLevel level) const = 0;
    /** @return a number in a form whose sum is a double, whatever the engine adds up in */
    virtual std::string obtainAddend(const std::string& expression, const SqlColumn& /*column*/) const
    {
        return "CAST(" + expression + " AS DOUBLE PRECISION)";
    }
    /** @return a number, null or not, in a form that reaches the result with all of its digits */
    virtual std::string obtainExactNumber(const std::string& expression) const { return expression; }
    /** @return the greatest whole number that is not above a number */
    virtual std::string obtainFloor(const std::string& expression) const
    {
        return "FLOOR(" + expression + ')';
    }
    /** @return the end of a query that has rows of a name d and a number v in a step called named: for each
     * name the number q below which a share of its numbers lies, halfway between two where it falls between
     * them */
    virtual std::string obtainQuantiles(const std::string& share) const;
    /** @return a text expression that sorts by its bytes */
    virtual std::string obtainByteOrder(const std::string& expression) const { return expression; }

    /** @return a statement to run when a table has been filled, so that queries over it are planned by what
     * is in it; empty where the engine needs none */
    virtual std::string obtainAnalysis(const std::string& /*table*/) const { return {}; }
    /** @return whether one query can group in several ways */
    virtual bool hasGroupingSets() const { return false; }
    /** @return whether values that differ are found faster by grouping than by COUNT(DISTINCT) */
    virtual bool findsDistinctFasterAsGroups() const { return false; }

    // Conditions
    /** @return a text parameter as a value of type to compare with a column */
    virtual std::string obtainParameter(const std::string& placeholder, KXChartDataType type,
                                        const SqlColumn& column) const = 0;
    /** @return a condition: value is one of the list in a text parameter, see obtainListText */
    virtual std::string obtainIsInList(const std::string& value, const std::string& placeholder,
                                       const SqlColumn& column) const = 0;
    /** @return values as one parameter: a list of any length takes one place in a query */
    virtual std::string obtainListText(const std::vector<std::string>& values) const = 0;
    /** @return a condition: the text of expression holds the text of part */
    virtual std::string obtainContains(const std::string& expression, const std::string& part) const = 0;
};
