#include "postgresql_dialect.h"

#include <array>
#include <cstdio>

#include "host_error.h"

namespace {

std::string cast(const std::string& expression, const std::string& type)
{
    return "CAST(" + expression + " AS " + type + ")";
}

} // namespace

std::vector<std::string> PostgresqlDialect::obtainSetUp() const
{
    // Texts of dates and times must not depend on the server's settings.
    return {"SET client_encoding TO 'UTF8'", "SET datestyle TO 'ISO, YMD'", "SET timezone TO 'UTC'"};
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
    static constexpr std::array<const char*, 6> names = {"TEXT", "BIGINT", "DOUBLE PRECISION",
                                                         "DATE", "TIME",   "TIMESTAMP"};
    return names.at(static_cast<std::size_t>(type));
}

std::string PostgresqlDialect::obtainColumnsQuery() const
{
    return "SELECT CAST(attname AS TEXT), FORMAT_TYPE(atttypid, NULL) FROM pg_attribute "
           "WHERE attrelid = TO_REGCLASS(QUOTE_IDENT(CAST(:p0 AS TEXT))) AND attnum > 0 AND NOT attisdropped "
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
    }
    return expression;
}

std::string PostgresqlDialect::obtainByteOrder(const std::string& expression) const
{
    return expression + " COLLATE \"C\"";
}

std::string PostgresqlDialect::obtainParameter(const std::string& placeholder, KXChartDataType type) const
{
    return cast(placeholder, obtainTypeName(type));
}

std::string PostgresqlDialect::obtainContains(const std::string& expression, const std::string& part) const
{
    return "STRPOS(" + expression + ", " + part + ") > 0";
}
