#include "odbc_sqlite_dialect.h"

#include "host_error.h"

std::string OdbcSqliteDialect::quoteIdentifier(const std::string& name) const
{
    if (name.find_first_of("':#") != std::string::npos)
        throw HostError("odbc", "\"" + name + "\"", "a name with ' : or # cannot be sent over ODBC");
    return SqliteDialect::quoteIdentifier(name);
}

std::string OdbcSqliteDialect::obtainExactNumber(const std::string& expression) const
{
    return "CASE WHEN " + expression + " IS NULL THEN NULL ELSE PRINTF('%!.17g', " + expression + ") END";
}
