#include "sqlite_dialect.h"

#include <algorithm>
#include <array>

#include "host_error.h"

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
    return "SELECT name, type FROM pragma_table_info(:p0) ORDER BY cid";
}

KXChartDataType SqliteDialect::obtainDataType(const std::string& declaredType) const
{
    // Any word is a type in SQLite; these are the parts by which it and its users tell them apart.
    static const std::pair<const char*, KXChartDataType> parts[] = {
        {"DATETIME", KXChartDataType::DateTime}, {"TIMESTAMP", KXChartDataType::DateTime},
        {"DATE", KXChartDataType::Date},         {"TIME", KXChartDataType::Time},
        {"INT", KXChartDataType::Integer},       {"REAL", KXChartDataType::Float},
        {"FLOA", KXChartDataType::Float},        {"DOUB", KXChartDataType::Float},
        {"NUMERIC", KXChartDataType::Float},     {"DECIMAL", KXChartDataType::Float},
    };
    std::string upper = declaredType;
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    for (const auto& [part, type] : parts) {
        if (upper.find(part) != std::string::npos)
            return type;
    }
    return KXChartDataType::String;
}

std::string SqliteDialect::obtainText(const std::string& expression, KXChartDataType type) const
{
    if (type == KXChartDataType::DateTime)
        return "REPLACE(" + expression + ", 'T', ' ')";
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
    }
    return expression;
}

std::string SqliteDialect::obtainParameter(const std::string& placeholder, KXChartDataType type) const
{
    if (type == KXChartDataType::Integer)
        return "CAST(" + placeholder + " AS INTEGER)";
    return "CAST(" + placeholder + (type == KXChartDataType::Float ? " AS REAL)" : " AS TEXT)");
}

std::string SqliteDialect::obtainContains(const std::string& expression, const std::string& part) const
{
    return "INSTR(" + expression + ", " + part + ") > 0";
}
