#pragma once

#include "csv_reader.h"

#include <functional>
#include <memory>
#include <string>

class SqlDataProvider;
class SqlSession;
struct DataBinding;

/** The data of one chart: a CSV file or a database, and the binding of its columns. */
class ChartDataSource {
public:
    /** Makes a provider that does more than answer; session outlives it. */
    using ProviderMaker =
        std::function<std::unique_ptr<SqlDataProvider>(SqlSession& session, const DataBinding& binding)>;

    /** @param data a CSV file, or a connection such as "sqlite:///data/sales.db"
     *  @param binding the file that says which columns are dimensions and measures
     *  @param progress told now and then how far the reading of a CSV file is; may be empty
     *  @param makeProvider empty for one that answers and does nothing more
     *  Throws HostError for what cannot be opened, read or understood. */
    ChartDataSource(const std::string& data, const std::string& binding,
                    const CsvReader::ProgressHandler& progress, const ProviderMaker& makeProvider = {});
    ~ChartDataSource();

    SqlDataProvider& getProvider() { return *m_provider; }

private:
    std::unique_ptr<SqlSession> m_session;
    std::unique_ptr<SqlDataProvider> m_provider;
};
