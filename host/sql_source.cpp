#include "sql_source.h"

#include "data_binding.h"
#include "sql_dialect.h"

std::string writeSqlSource(const SqlDialect& dialect, const DataBinding& binding, std::size_t columnCount)
{
    std::string sql = "WITH source(";
    for (std::size_t i = 0; i < columnCount; ++i)
        sql += (i ? ", c" : "c") + std::to_string(i);
    const std::string schema = binding.schema.empty() ? "" : dialect.quoteIdentifier(binding.schema) + '.';
    return sql + ") AS (SELECT * FROM " + schema + dialect.quoteIdentifier(binding.table) + ')';
}
