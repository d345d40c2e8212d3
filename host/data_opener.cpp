#include "data_opener.h"

#include "csv_importer.h"
#include "data_binding.h"
#include "host_error.h"
#include "sql_dialect.h"
#include "sql_session.h"
#include "text_file.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace {

/** Throws HostError for a file that is no table of texts but of a kind that many programs write. */
void requireTextTable(const std::string& path)
{
    std::error_code none;
    if (std::filesystem::exists(path, none) && !std::filesystem::is_regular_file(path, none))
        throw HostError(path, "", "is no file"); // but a folder, or what may never end
    std::array<char, 16> head{};
    std::ifstream(path, std::ios::binary).read(head.data(), head.size());
    const std::string_view start(head.data(), head.size());
    if (start.starts_with("SQLite format 3"))
        throw HostError(path, "", "is an SQLite database; as a connection it is sqlite://" + path);
    if (start.starts_with("PK\x03\x04"))
        throw HostError(path, "", "is a spreadsheet or an archive; save its table as CSV");
    if (start.starts_with("PAR1"))
        throw HostError(path, "", "is a Parquet file; save its table as CSV");
}

bool isQuery(const std::string& data) { return std::filesystem::path(data).extension() == ".sql"; }

/** Makes a table of a file's query, which can do nothing but be asked: what it is put into takes no other
 * statement. */
void importQuery(SqlSession& session, const std::string& path, const std::string& table)
{
    session.execute("CREATE TABLE " + session.getDialect().quoteIdentifier(table) + " AS\n" +
                    readTextFile(path));
}

} // namespace

bool isConnection(const std::string& data) { return data.find("://") != std::string::npos; }

std::unique_ptr<SqlSession> openData(const std::string& data, const std::vector<const DataBinding*>& bindings,
                                     const CsvReader::ProgressHandler& progress)
{
    auto session = std::make_unique<SqlSession>(isConnection(data) ? data : std::string());
    if (isConnection(data))
        return session;
    requireTextTable(data);
    if (isQuery(data)) {
        std::set<std::string> tables;
        for (const DataBinding* binding : bindings)
            if (tables.insert(binding->table).second)
                importQuery(*session, data, binding->table);
        return session;
    }
    std::map<std::string, CsvImporter> importers;
    for (const DataBinding* binding : bindings) {
        if (!binding->schema.empty())
            throw HostError(binding->name, "schema", "only a database has schemas, and the data is a file");
        CsvImporter& importer = importers.try_emplace(binding->table, *session).first->second;
        for (const auto& [column, type] : binding->columnTypes)
            importer.declareType(column, type);
    }
    for (auto& [table, importer] : importers) {
        importer.setProgressHandler(progress);
        importer.importFile(data, table);
    }
    return session;
}
