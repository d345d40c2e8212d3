#include "chart_data_source.h"

#include "data_binding_reader.h"
#include "data_opener.h"
#include "sql_data_provider.h"
#include "sql_session.h"

ChartDataSource::ChartDataSource(const std::string& data, const std::string& binding,
                                 const CsvReader::ProgressHandler& progress,
                                 const ProviderMaker& makeProvider)
{
    const DataBinding bound = DataBindingReader(binding).readFile();
    m_session = openData(data, {&bound}, progress);
    m_provider = makeProvider ? makeProvider(*m_session, bound)
                              : std::make_unique<SqlDataProvider>(*m_session, bound);
}

ChartDataSource::~ChartDataSource() = default;
