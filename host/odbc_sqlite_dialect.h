#pragma once

#include "sqlite_dialect.h"

/** SQLite behind its ODBC driver. The driver hands computed numbers over as texts of 15 digits. The database
 * layer looks for ":name" and "#" outside of single quotes to place its parameters, double quotes or not; a
 * name with these cannot be sent. */
class OdbcSqliteDialect : public SqliteDialect {
public:
    std::string quoteIdentifier(const std::string& name) const override;
    std::string obtainExactNumber(const std::string& expression) const override;
};
