#pragma once

#include <string>

struct DataBinding;
class SqlDialect;

/** @return the head of a query over a binding's table, up to "WITH source(c0, c1, ...) AS (...)": columns go
 *  by their number in the table, so that their names never enter the text */
std::string writeSqlSource(const SqlDialect& dialect, const DataBinding& binding, std::size_t columnCount);
