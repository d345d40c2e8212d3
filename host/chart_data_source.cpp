#include "chart_data_source.h"

#include "csv_importer.h"
#include "data_binding_reader.h"
#include "host_error.h"
#include "sql_data_provider.h"
#include "sql_session.h"

#include <array>
#include <fstream>
#include <string_view>

namespace {

bool isConnection(const std::string& data) { return data.find("://") != std::string::npos; }

/** Throws HostError for a file that is no table of texts but of a kind that many programs write. */
void requireTextTable(const std::string& path)
{
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

} // namespace

ChartDataSource::ChartDataSource(const std::string& data, const std::string& binding,
                                 const CsvReader::ProgressHandler& progress,
                                 const ProviderMaker& makeProvider)
{
    const DataBinding bound = DataBindingReader(binding).readFile();
    m_session = std::make_unique<SqlSession>(isConnection(data) ? data : std::string());
    if (!isConnection(data)) {
        if (!bound.schema.empty())
            throw HostError(binding, "schema", "only a database has schemas, and the data is a file");
        requireTextTable(data);
        CsvImporter importer(*m_session);
        for (const auto& [column, type] : bound.columnTypes)
            importer.declareType(column, type);
        importer.setProgressHandler(progress);
        importer.importFile(data, bound.table);
    }
    m_provider = makeProvider ? makeProvider(*m_session, bound)
                              : std::make_unique<SqlDataProvider>(*m_session, bound);
}

ChartDataSource::~ChartDataSource() = default;
