#pragma once

#include "csv_reader.h"

#include <memory>
#include <string>
#include <vector>

class SqlSession;
struct DataBinding;

/** Opens data for bindings: connects to a database, or makes a table in memory for each table that the
 * bindings name, of a CSV file, with the types that they give, or of the rows of a query.
 *  @param data a CSV file, a file of one query whose name ends in ".sql", or a connection such as
 * "sqlite:///data/sales.db"
 *  @param progress told now and then how far the reading of a CSV file is; may be empty
 *  Throws HostError for what cannot be opened, read or understood. */
[[nodiscard]] std::unique_ptr<SqlSession> openData(const std::string& data,
                                                   const std::vector<const DataBinding*>& bindings,
                                                   const CsvReader::ProgressHandler& progress);

/** @return whether data names a database rather than a file */
[[nodiscard]] bool isConnection(const std::string& data);
