#pragma once

#include <map>
#include <string>
#include <vector>

#include "csv_reader.h"
#include "sql_column.h"

class SqlSession;

/** Makes a database table of a CSV file. The type of a column is declared or else guessed from all of its
 * texts; empty texts become nulls, dates and times their one form (YYYY-MM-DD HH:MM:SS). The file is read
 * twice, once to see what is in it and once to copy it; all is one transaction, so that a table is there as a
 * whole or not at all. */
class CsvImporter {
public:
    /** @param session outlives this object */
    explicit CsvImporter(SqlSession& session);

    void declareType(const std::string& column, KXChartDataType type);
    /** Told now and then how many bytes of how many are done, both readings counted. */
    void setProgressHandler(CsvReader::ProgressHandler handler);

    /** Throws HostError for a file that is no CSV, a text that is not of its column's declared type, names
     * that the header has twice or not at all, and a table that exists already. Without an own name a column
     * is "column 3". */
    void importFile(const std::string& path, const std::string& table);

private:
    class Insertion;

    std::vector<SqlColumn> _obtainColumns(CsvReader& reader) const;
    void _nameColumns(const CsvReader& reader, std::vector<SqlColumn>& columns) const;
    void _declareColumns(const CsvReader& reader, std::vector<SqlColumn>& columns) const;
    void _createTable(const std::string& table, const std::vector<SqlColumn>& columns);
    void _copyRows(CsvReader& reader, const std::string& table, const std::vector<SqlColumn>& columns);
    CsvReader::ProgressHandler _obtainProgress(std::uint64_t pass) const;

    SqlSession& m_session;
    std::map<std::string, KXChartDataType> m_declaredTypes;
    CsvReader::ProgressHandler m_handleProgress;
};
