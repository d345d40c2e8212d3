#pragma once

#include <memory>
#include <string>
#include <vector>

#include "sql_column.h"
#include "sql_query.h"
#include "sql_table.h"

class HostError;
class SqlDialect;

namespace soci {
class session;
class soci_error;
} // namespace soci

/** One open connection to a database. */
class SqlSession {
public:
    enum class MissingFile { Refuse, Make };

    /** @param connection the engine, "://" and what the engine itself needs to know:
     *  "sqlite://" (or nothing) for a database in memory, "sqlite:///data/sales.db" for a file,
     *  "postgresql://user@localhost:5432/sales" (or "postgres://") or "postgresql://host=localhost
     * dbname=sales", "odbc://Driver=SQLite3;Database=/data/sales.db". Throws HostError when that cannot be
     * opened or no dialect knows the engine. Only an SQLite file is made where it is missing, and only on
     * request. */
    explicit SqlSession(const std::string& connection, MissingFile missingFile = MissingFile::Refuse);
    ~SqlSession();
    SqlSession(const SqlSession&) = delete;
    SqlSession& operator=(const SqlSession&) = delete;

    /** @return what an error calls this database: the file, or the engine; never a password */
    const std::string& getName() const { return m_name; }
    const SqlDialect& getDialect() const { return *m_dialect; }
    /** @return the database layer's own session, owned by this object */
    soci::session& getNative() { return *m_native; }

    /** @param schema empty for the one that the engine finds by itself
     *  @return the columns of a table in order, as they are declared; throws HostError when there is no such
     * table */
    std::vector<SqlColumn> obtainColumns(const std::string& table, const std::string& schema = {});
    SqlTable query(const SqlQuery& query);
    void execute(const std::string& statement);
    /** Runs a statement that answers nothing, with the values bound to it. */
    void execute(const SqlQuery& statement);

    /** @return what the database refused, as one line without the statement */
    HostError makeError(const std::string& place, const soci::soci_error& error) const;

private:
    void _open(const std::string& engine, const std::string& rest, MissingFile missingFile);
    void _openSqlite(const std::string& path, MissingFile missingFile);
    void _openOdbc(const std::string& rest);

    std::string m_name;
    std::unique_ptr<SqlDialect> m_dialect;
    std::unique_ptr<soci::session> m_native;
};
