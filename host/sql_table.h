#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sql_query.h"

/** The rows that a query answered, column by column. A text is UTF-8 as the database gave it, a number a
 * double; both may be null. Rows and columns are asked for within their counts. */
class SqlTable {
public:
    explicit SqlTable(const std::vector<SqlResultType>& types = {});

    std::size_t getRowCount() const { return m_rowCount; }

    bool isNull(std::size_t row, std::size_t column) const { return m_columns[column].nulls[row]; }
    /** @return empty for a null; the column must be read as text */
    const std::string& getText(std::size_t row, std::size_t column) const
    {
        return m_columns[column].texts[row];
    }
    /** @return 0 for a null; the column must be read as numbers */
    double getNumber(std::size_t row, std::size_t column) const { return m_columns[column].numbers[row]; }

    // Filling: one call per column from the first to the last, then the next row
    void addText(std::size_t column, bool isNull, const std::string& text);
    void addNumber(std::size_t column, bool isNull, double number);
    void endRow() { ++m_rowCount; }

private:
    struct Column {
        std::vector<bool> nulls;
        std::vector<std::string> texts;
        std::vector<double> numbers;
    };

    std::vector<Column> m_columns;
    std::size_t m_rowCount = 0;
};
