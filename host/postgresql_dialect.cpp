#include "postgresql_dialect.h"

#include <array>
#include <cstdio>

#include "host_error.h"

namespace {

constexpr std::array<const char*, 6> typeNames = {"TEXT", "BIGINT", "DOUBLE PRECISION",
                                                  "DATE", "TIME",   "TIMESTAMP"};

std::string cast(const std::string& expression, const std::string& type)
{
    return "CAST(" + expression + " AS " + type + ")";
}

/** @return the type in which a value of type is compared with a column: the column's own, which its index is
 * in, where it takes every such value */
std::string obtainComparedType(KXChartDataType type, const SqlColumn& column)
{
    const bool isOwn = type == column.type && !column.needsCast &&
                       (type == KXChartDataType::Float || type == KXChartDataType::DateTime);
    return isOwn ? column.declaredType : typeNames.at(static_cast<std::size_t>(type));
}

} // namespace

std::vector<std::string> PostgresqlDialect::obtainSetUp() const
{
    // Texts of dates and times must not depend on the server's settings. Compiling a query, where the server
    // can, takes longer than it saves: how many months are in a million moments it guesses far too high.
    return {"SET client_encoding TO 'UTF8'", "SET datestyle TO 'ISO, YMD'", "SET timezone TO 'UTC'",
            "UPDATE pg_settings SET setting = 'off' WHERE name = 'jit'"};
}

std::string PostgresqlDialect::quoteIdentifier(const std::string& name) const
{
    if (name.empty() || name.find('\0') != std::string::npos)
        throw HostError("postgresql", "\"" + name + "\"",
                        "is empty or holds a zero byte and cannot name anything");
    // The database layer looks for ":name" inside double quotes too; an escaped character it leaves alone.
    std::string quoted = "U&\"";
    for (const char c : name) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                           c == '_' || c == ' ' || static_cast<unsigned char>(c) >= 0x80;
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\%04x", static_cast<unsigned>(c) & 0xffU);
        quoted += plain ? std::string(1, c) : std::string(escape.data());
    }
    return quoted + '"';
}

std::string PostgresqlDialect::obtainTypeName(KXChartDataType type) const
{
    return typeNames.at(static_cast<std::size_t>(type));
}

std::string PostgresqlDialect::obtainColumnsQuery() const
{
    return "SELECT CAST(attname AS TEXT), FORMAT_TYPE(atttypid, NULL) FROM (SELECT "
           "QUOTE_IDENT(CAST(:p0 AS TEXT)) AS named, QUOTE_IDENT(NULLIF(CAST(:p1 AS TEXT), '')) AS space) AS "
           "q "
           "JOIN pg_attribute ON attrelid = TO_REGCLASS(CONCAT_WS('.', space, named)) "
           "WHERE attnum > 0 AND NOT attisdropped "
           "ORDER BY attnum";
}

KXChartDataType PostgresqlDialect::obtainDataType(const std::string& declaredType) const
{
    static const std::pair<const char*, KXChartDataType> types[] = {
        {"smallint", KXChartDataType::Integer}, {"integer", KXChartDataType::Integer},
        {"bigint", KXChartDataType::Integer},   {"numeric", KXChartDataType::Float},
        {"real", KXChartDataType::Float},       {"double precision", KXChartDataType::Float},
        {"date", KXChartDataType::Date},
    };
    for (const auto& [name, type] : types) {
        if (declaredType == name)
            return type;
    }
    if (declaredType.starts_with("timestamp"))
        return KXChartDataType::DateTime;
    return declaredType.starts_with("time") ? KXChartDataType::Time : KXChartDataType::String;
}

std::string PostgresqlDialect::obtainCast(const std::string& expression, const SqlColumn& column) const
{
    const bool isFlag = column.declaredType == "boolean" && column.type != KXChartDataType::String;
    return cast(isFlag ? cast(expression, "INTEGER") : expression, obtainTypeName(column.type));
}

std::string PostgresqlDialect::obtainComparable(const std::string& expression, const SqlColumn& column) const
{
    // Types that are texts to charts need not even have an order.
    return column.type == KXChartDataType::String ? cast(expression, "TEXT") : expression;
}

std::string PostgresqlDialect::obtainGroupKey(const std::string& expression, const SqlColumn& column,
                                              std::optional<DateLevel> level) const
{
    if (!level || column.type == KXChartDataType::Date)
        return obtainComparable(expression, column);
    const auto truncate = [&](const char* unit) {
        return std::string("DATE_TRUNC('") + unit + "', " +
               cast(expression, column.type == KXChartDataType::Time ? "INTERVAL" : "TIMESTAMP") + ")";
    };
    switch (*level) {
    case DateLevel::Year:
        return truncate("year");
    case DateLevel::Quarter:
    case DateLevel::Month:
        return truncate("month");
    case DateLevel::Week:
    case DateLevel::Day:
    case DateLevel::DayOfWeek:
        return truncate("day");
    case DateLevel::Hour:
    case DateLevel::HourOfDay:
        return truncate("hour");
    case DateLevel::Minute:
        return truncate("minute");
    case DateLevel::Second:
        break;
    }
    return truncate("second");
}

std::string PostgresqlDialect::obtainText(const std::string& expression, KXChartDataType type) const
{
    switch (type) {
    case KXChartDataType::DateTime:
        return cast(cast(expression, "TIMESTAMP"), "TEXT");
    case KXChartDataType::Time:
        return cast(cast(expression, "TIME"), "TEXT");
    default:
        return cast(expression, "TEXT");
    }
}

std::string PostgresqlDialect::obtainDateBucket(const std::string& expression, KXChartDataType type,
                                                DateLevel level) const
{
    const bool isTime = type == KXChartDataType::Time;
    const std::string moment = cast(expression, isTime ? "INTERVAL" : "TIMESTAMP");
    const auto format = [&](const std::string& pattern) {
        return "TO_CHAR(" + moment + ", '" + pattern + "')";
    };
    const auto extract = [&](const std::string& part) {
        return "CAST(EXTRACT(" + part + " FROM " + moment + ") AS INTEGER)";
    };
    const std::string date = isTime ? "" : "YYYY-MM-DD ";
    switch (level) {
    case DateLevel::Year:
        return format("YYYY-\"01-01\"");
    case DateLevel::Quarter:
        return format("YYYY \"Q\"Q");
    case DateLevel::Month:
        return format("YYYY-MM-\"01\"");
    case DateLevel::Week:
        return "(" + format("YYYY \"W\"") + " || LPAD(CAST((" + extract("DOY") + " + 7 - " +
               extract("ISODOW") + ") / 7 AS TEXT), 2, '0'))";
    case DateLevel::Day:
        return format("YYYY-MM-DD");
    case DateLevel::Hour:
        return format(date + "HH24:\"00:00\"");
    case DateLevel::Minute:
        return format(date + "HH24:MI:\"00\"");
    case DateLevel::Second:
        return format(date + "HH24:MI:SS");
    case DateLevel::DayOfWeek:
        return "('2001-01-0' || " + extract("ISODOW") + ")";
    case DateLevel::HourOfDay:
        return format("HH24:\"00:00\"");
    }
    return expression;
}

std::string PostgresqlDialect::obtainByteOrder(const std::string& expression) const
{
    return expression + " COLLATE \"C\"";
}

std::string PostgresqlDialect::obtainParameter(const std::string& placeholder, KXChartDataType type,
                                               const SqlColumn& column) const
{
    return cast(placeholder, obtainComparedType(type, column));
}

std::string PostgresqlDialect::obtainIsInList(const std::string& value, const std::string& placeholder,
                                              const SqlColumn& column) const
{
    return value + " = ANY(" + cast(placeholder, obtainComparedType(column.type, column) + "[]") + ")";
}

std::string PostgresqlDialect::obtainListText(const std::vector<std::string>& values) const
{
    std::string list = "{";
    for (const std::string& value : values) {
        list += list.size() > 1 ? ",\"" : "\"";
        for (const char c : value)
            list.append(c == '"' || c == '\\' ? "\\" : "").append(1, c);
        list += '"';
    }
    return list + '}';
}

std::string PostgresqlDialect::obtainContains(const std::string& expression, const std::string& part) const
{
    return "STRPOS(" + expression + ", " + part + ") > 0";
}

std::string PostgresqlDialect::obtainQuantiles(const std::string& share) const
{
    return " SELECT d, PERCENTILE_CONT(" + share + ") WITHIN GROUP (ORDER BY v) AS q FROM named GROUP BY d";
}
