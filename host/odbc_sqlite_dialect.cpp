#include "odbc_sqlite_dialect.h"

#include "host_error.h"

std::string OdbcSqliteDialect::quoteIdentifier(const std::string& name) const
{
    if (name.find_first_of("':#") != std::string::npos)
        throw HostError("odbc", "\"" + name + "\"", "a name with ' : or # cannot be sent over ODBC");
    return SqliteDialect::quoteIdentifier(name);
}
