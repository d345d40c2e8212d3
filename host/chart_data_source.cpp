#include "chart_data_source.h"

#include "csv_importer.h"
#include "data_binding_reader.h"
#include "host_error.h"
#include "sql_data_provider.h"
#include "sql_session.h"

namespace {

bool isConnection(const std::string& data) { return data.find("://") != std::string::npos; }

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
