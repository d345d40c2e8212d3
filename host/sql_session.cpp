#include "sql_session.h"

#include <filesystem>
#include <soci/odbc/soci-odbc.h>
#include <soci/postgresql/soci-postgresql.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include "host_error.h"
#include "odbc_sqlite_dialect.h"
#include "postgresql_connection.h"
#include "postgresql_dialect.h"
#include "sqlite_dialect.h"

namespace {

/** Where one column of a result lands at each fetch. */
struct ResultCell {
    soci::indicator indicator = soci::i_ok;
    std::string text;
    double number = 0;
};

/** @return the connection string with the word that keeps SQLite's driver from making a missing file */
std::string obtainOdbcString(const std::string& rest)
{
    const bool isSqlite = rest.find("SQLite") != std::string::npos ||
                          rest.find("sqlite") != std::string::npos;
    return isSqlite ? rest + ";NoCreat=1" : rest;
}

} // namespace

SqlSession::SqlSession(const std::string& connection, MissingFile missingFile)
{
    const std::size_t mark = connection.find("://");
    if (mark == std::string::npos && !connection.empty())
        throw HostError("connection", "",
                        "names no engine; it begins with sqlite://, postgresql:// or odbc://");
    const std::string engine = connection.substr(0, mark == std::string::npos ? 0 : mark);
    m_name = engine.empty() ? "sqlite" : engine;
    try {
        _open(m_name, connection.empty() ? "" : connection.substr(mark + 3), missingFile);
        for (const std::string& statement : m_dialect->obtainSetUp())
            *m_native << statement;
    } catch (const soci::soci_error& error) {
        throw makeError("", error);
    }
}

SqlSession::~SqlSession() = default;

void SqlSession::_open(const std::string& engine, const std::string& rest, MissingFile missingFile)
{
    if (engine == "sqlite") {
        _openSqlite(rest, missingFile);
    } else if (engine == "postgresql" || engine == "postgres") {
        m_dialect = std::make_unique<PostgresqlDialect>();
        m_native = std::make_unique<soci::session>(soci::postgresql, obtainPostgresqlConnection(rest));
    } else if (engine == "odbc") {
        _openOdbc(rest);
    } else {
        throw HostError("connection", engine,
                        "is no engine known here; known are sqlite, postgresql and odbc");
    }
}

void SqlSession::_openSqlite(const std::string& path, MissingFile missingFile)
{
    if (!path.empty())
        m_name = path;
    if (path.find('"') != std::string::npos)
        throw HostError(path, "", "a path with a double quote cannot name a database");
    if (!path.empty() && missingFile == MissingFile::Refuse && !std::filesystem::exists(path))
        throw HostError(path, "", "no such file");
    m_dialect = std::make_unique<SqliteDialect>();
    m_native = std::make_unique<soci::session>(
        soci::sqlite3, "db=\"" + (path.empty() ? std::string(":memory:") : path) + "\"");
}

void SqlSession::_openOdbc(const std::string& rest)
{
    using Backend = soci::odbc_session_backend;
    m_native = std::make_unique<soci::session>(soci::odbc, obtainOdbcString(rest));
    const auto* backend = static_cast<const Backend*>(m_native->get_backend());
    switch (backend->get_database_product()) {
    case Backend::prod_sqlite:
        m_dialect = std::make_unique<OdbcSqliteDialect>();
        return;
    case Backend::prod_postgresql:
        m_dialect = std::make_unique<PostgresqlDialect>();
        return;
    default:
        throw HostError("odbc", "", "no dialect for this engine; known are SQLite and PostgreSQL");
    }
}

std::vector<SqlColumn> SqlSession::obtainColumns(const std::string& table, const std::string& schema)
{
    const SqlTable found = query(
        {m_dialect->obtainColumnsQuery(), {table, schema}, {SqlResultType::Text, SqlResultType::Text}});
    if (found.getRowCount() == 0)
        throw HostError(m_name, "table \"" + table + "\"", "no such table");
    std::vector<SqlColumn> columns;
    columns.reserve(found.getRowCount());
    for (std::size_t row = 0; row < found.getRowCount(); ++row)
        columns.push_back({found.getText(row, 0), m_dialect->obtainDataType(found.getText(row, 1)),
                           found.getText(row, 1), false});
    return columns;
}

SqlTable SqlSession::query(const SqlQuery& query)
{
    try {
        // 1. Values travel beside the text of the query, never in it.
        soci::statement statement(*m_native);
        for (const std::string& parameter : query.parameters)
            statement.exchange(soci::use(parameter));

        // 2. The types of the results are known beforehand: an engine that guesses them from the first row
        // errs.
        std::vector<ResultCell> cells(query.results.size());
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (query.results[i] == SqlResultType::Text)
                statement.exchange(soci::into(cells[i].text, cells[i].indicator));
            else
                statement.exchange(soci::into(cells[i].number, cells[i].indicator));
        }
        statement.alloc();
        statement.prepare(query.text);
        statement.define_and_bind();
        statement.execute();

        // 3. Copy row by row.
        SqlTable table(query.results);
        while (statement.fetch()) {
            for (std::size_t i = 0; i < cells.size(); ++i) {
                const bool isNull = cells[i].indicator == soci::i_null;
                if (query.results[i] == SqlResultType::Text)
                    table.addText(i, isNull, cells[i].text);
                else
                    table.addNumber(i, isNull, cells[i].number);
            }
            table.endRow();
        }
        return table;
    } catch (const soci::soci_error& error) {
        throw makeError("query", error);
    }
}

void SqlSession::execute(const std::string& statement)
{
    try {
        *m_native << statement;
    } catch (const soci::soci_error& error) {
        throw makeError("statement", error);
    }
}

void SqlSession::execute(const SqlQuery& statement)
{
    try {
        soci::statement prepared(*m_native);
        for (const std::string& parameter : statement.parameters)
            prepared.exchange(soci::use(parameter));
        prepared.alloc();
        prepared.prepare(statement.text);
        prepared.define_and_bind();
        prepared.execute(true);
    } catch (const soci::soci_error& error) {
        throw makeError("statement", error);
    }
}

HostError SqlSession::makeError(const std::string& place, const soci::soci_error& error) const
{
    return {m_name, place, error.get_error_message()};
}
