#include "sqlite_dialect.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "host_error.h"

namespace {

/** @return text with its Latin letters in upper case */
std::string toUpper(std::string text)
{
    for (char& c : text)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

/** @return whether the engine keeps numbers in a column of a declared type as texts */
bool isTextDeclared(const std::string& declaredType)
{
    const std::string upper = toUpper(declaredType);
    return std::ranges::any_of(std::array{"CHAR", "CLOB", "TEXT"},
                               [&](const char* part) { return upper.find(part) != std::string::npos; });
}

std::string toStorageType(const std::string& expression, KXChartDataType type)
{
    const char* const name = type == KXChartDataType::Integer ? "INTEGER"
                             : type == KXChartDataType::Float ? "REAL"
                                                              : "TEXT";
    return "CAST(" + expression + " AS " + name + ")";
}

} // namespace

std::string SqliteDialect::quoteIdentifier(const std::string& name) const
{
    if (name.empty() || name.find('\0') != std::string::npos)
        throw HostError("sqlite", "\"" + name + "\"",
                        "is empty or holds a zero byte and cannot name anything");
    std::string quoted = "\"";
    for (const char c : name)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

std::string SqliteDialect::obtainTypeName(KXChartDataType type) const
{
    static constexpr std::array<const char*, 6> names = {"TEXT", "INTEGER", "REAL",
                                                         "DATE", "TIME",    "DATETIME"};
    return names.at(static_cast<std::size_t>(type));
}

std::string SqliteDialect::obtainColumnsQuery() const
{
    return "SELECT name, type FROM pragma_table_info(:p0, NULLIF(:p1, '')) ORDER BY cid";
}

KXChartDataType SqliteDialect::obtainDataType(const std::string& declaredType) const
{
    // Any word is a type in SQLite; these are the parts by which it and its users tell them apart.
    static const std::pair<const char*, KXChartDataType> parts[] = {
        {"DATETIME", KXChartDataType::DateTime}, {"TIMESTAMP", KXChartDataType::DateTime},
        {"DATE", KXChartDataType::Date},         {"TIME", KXChartDataType::Time},
        {"INT", KXChartDataType::Integer},       {"REAL", KXChartDataType::Float},
        {"FLOA", KXChartDataType::Float},        {"DOUB", KXChartDataType::Float},
        {"NUM", KXChartDataType::Float},         {"DEC", KXChartDataType::Float},
        {"MONEY", KXChartDataType::Float},       {"BOOL", KXChartDataType::Integer},
    };
    const std::string upper = toUpper(declaredType);
    for (const auto& [part, type] : parts) {
        if (upper.find(part) != std::string::npos)
            return type;
    }
    return KXChartDataType::String;
}

SqlTypeTrust SqliteDialect::obtainTypeTrust(const std::string& declaredType) const
{
    const KXChartDataType type = obtainDataType(declaredType);
    if (type == KXChartDataType::Integer || type == KXChartDataType::Float)
        return SqlTypeTrust::Whole;
    const bool isText = type != KXChartDataType::String || isTextDeclared(declaredType);
    return isText ? SqlTypeTrust::TextOrTime : SqlTypeTrust::None;
}

std::string SqliteDialect::obtainCast(const std::string& expression, const SqlColumn& column) const
{
    switch (column.type) {
    case KXChartDataType::Integer:
    case KXChartDataType::Float:
        // A text without a digit would become a zero.
        return "CASE WHEN " + expression + " GLOB '*[0-9]*' THEN " + toStorageType(expression, column.type) +
               " END";
    case KXChartDataType::Date:
        return "DATE(" + expression + ")";
    case KXChartDataType::Time:
        return "TIME(" + expression + ")";
    case KXChartDataType::DateTime:
        return "DATETIME(" + expression + ")";
    case KXChartDataType::String:
        break;
    }
    return expression;
}

std::string SqliteDialect::obtainComparable(const std::string& expression, const SqlColumn& column) const
{
    if (column.type != KXChartDataType::String)
        return expression;
    return (isTextDeclared(column.declaredType) ? expression : "CAST(" + expression + " AS TEXT)") +
           " COLLATE BINARY";
}

std::string SqliteDialect::obtainGroupKey(const std::string& expression, const SqlColumn& column,
                                          std::optional<DateLevel> level) const
{
    // Grouping by a part of the text takes a fifth of the time that the engine's functions for dates take.
    const auto cut = [&](int length, const char* rest) {
        return "(SUBSTR(" + expression + ", 1, " + std::to_string(length) + ") || '" + rest + "')";
    };
    if (!level || column.type == KXChartDataType::Date)
        return expression + " COLLATE BINARY";
    const int date = column.type == KXChartDataType::Time ? 0 : 11;
    switch (*level) {
    case DateLevel::Year:
        return cut(4, "-01-01");
    case DateLevel::Quarter:
    case DateLevel::Month:
        return cut(7, "-01");
    case DateLevel::Week:
    case DateLevel::Day:
    case DateLevel::DayOfWeek:
        return cut(10, "");
    case DateLevel::Hour:
    case DateLevel::HourOfDay:
        return cut(date + 2, ":00:00");
    case DateLevel::Minute:
        return cut(date + 5, ":00");
    case DateLevel::Second:
        break;
    }
    return cut(date + 8, "");
}

std::string SqliteDialect::obtainAddend(const std::string& expression, const SqlColumn& column) const
{
    // Whole numbers are added up as such and may overflow, others need no cast that costs a tenth of a query.
    return column.type == KXChartDataType::Float ? expression : SqlDialect::obtainAddend(expression, column);
}

std::string SqliteDialect::obtainText(const std::string& expression, KXChartDataType) const
{
    return "CAST(" + expression + " AS TEXT)";
}

std::string SqliteDialect::obtainDateBucket(const std::string& expression, KXChartDataType type,
                                            DateLevel level) const
{
    const auto format = [&](const std::string& pattern) {
        return "STRFTIME('" + pattern + "', " + expression + ")";
    };
    const auto number = [&](const std::string& pattern) {
        return "CAST(" + format(pattern) + " AS INTEGER)";
    };
    const std::string date = type == KXChartDataType::Time ? "" : "%Y-%m-%d ";
    switch (level) {
    case DateLevel::Year:
        return format("%Y-01-01");
    case DateLevel::Quarter:
        return "(" + format("%Y Q") + " || ((" + number("%m") + " + 2) / 3))";
    case DateLevel::Month:
        return format("%Y-%m-01");
    case DateLevel::Week:
        return format("%Y W%W");
    case DateLevel::Day:
        return format("%Y-%m-%d");
    case DateLevel::Hour:
        return format(date + "%H:00:00");
    case DateLevel::Minute:
        return format(date + "%H:%M:00");
    case DateLevel::Second:
        return format(date + "%H:%M:%S");
    case DateLevel::DayOfWeek:
        return "('2001-01-0' || ((" + number("%w") + " + 6) % 7 + 1))";
    case DateLevel::HourOfDay:
        return format("%H:00:00");
    }
    return expression;
}

std::string SqliteDialect::obtainParameter(const std::string& placeholder, KXChartDataType type,
                                           const SqlColumn&) const
{
    return toStorageType(placeholder, type);
}

std::string SqliteDialect::obtainIsInList(const std::string& value, const std::string& placeholder,
                                          const SqlColumn& column) const
{
    return value + " IN (SELECT " + toStorageType("value", column.type) + " FROM JSON_EACH(" + placeholder +
           "))";
}

std::string SqliteDialect::obtainListText(const std::vector<std::string>& values) const
{
    return nlohmann::json(values).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string SqliteDialect::obtainContains(const std::string& expression, const std::string& part) const
{
    return "INSTR(" + expression + ", " + part + ") > 0";
}

std::string SqliteDialect::obtainFloor(const std::string& expression) const
{
    // It is not said that there are mathematical functions.
    const std::string whole = "CAST(" + expression + " AS INTEGER)";
    return '(' + whole + " - (" + expression + " < " + whole + "))";
}
