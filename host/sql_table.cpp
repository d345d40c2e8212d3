#include "sql_table.h"

SqlTable::SqlTable(const std::vector<SqlResultType>& types) : m_columns(types.size()) {}

void SqlTable::addText(std::size_t column, bool isNull, const std::string& text)
{
    m_columns[column].nulls.push_back(isNull);
    m_columns[column].texts.push_back(isNull ? std::string() : text);
}

void SqlTable::addNumber(std::size_t column, bool isNull, double number)
{
    m_columns[column].nulls.push_back(isNull);
    m_columns[column].numbers.push_back(isNull ? 0 : number);
}
