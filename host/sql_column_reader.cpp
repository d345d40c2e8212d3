#include "sql_column_reader.h"

#include <algorithm>

#include "column_type_guess.h"
#include "data_binding.h"
#include "host_error.h"
#include "number_text.h"
#include "sql_dialect.h"
#include "sql_session.h"
#include "sql_source.h"
#include "typed_text.h"

namespace {

using Type = KXChartDataType;

bool isTemporal(Type type) { return type == Type::Date || type == Type::Time || type == Type::DateTime; }

/** @return whether an engine that keeps dates and times as texts takes text for one: all but its fine points
 * is in the one form */
bool isReadable(const std::string& text, Type type)
{
    const std::optional<std::string> typed = obtainTypedText(text, type);
    const std::size_t fixed = type == Type::Time ? 5 : 10;
    return typed && (!isTemporal(type) || text.substr(0, fixed) == typed->substr(0, fixed));
}

} // namespace

SqlColumnReader::SqlColumnReader(SqlSession& session, const DataBinding& binding)
    : m_session(session), m_binding(binding)
{
}

std::vector<SqlColumn> SqlColumnReader::readColumns() const
{
    std::vector<SqlColumn> columns = m_session.obtainColumns(m_binding.table, m_binding.schema);
    for (const auto& [name, type] : m_binding.columnTypes) {
        if (std::ranges::none_of(columns, [&](const SqlColumn& column) { return column.name == name; }))
            throw HostError(m_binding.name, "types",
                            "no column \"" + name + "\" in table \"" + m_binding.table + '"');
    }
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (_isNamed(columns[i].name))
            _readType(columns, i);
    }
    return columns;
}

bool SqlColumnReader::_isNamed(const std::string& column) const
{
    const auto isIn = [&](const auto& list) {
        return std::ranges::any_of(list, [&](const auto& binding) { return binding.column == column; });
    };
    const bool isChosenFrom = std::ranges::any_of(m_binding.choices, [&](const FilterAlternatives& choice) {
        return std::ranges::any_of(choice, isIn);
    });
    return isIn(m_binding.dimensions) || isIn(m_binding.measures) || isIn(m_binding.filters) || isChosenFrom;
}

void SqlColumnReader::_readType(std::vector<SqlColumn>& columns, std::size_t index) const
{
    SqlColumn& column = columns[index];
    const auto given = m_binding.columnTypes.find(column.name);
    const bool isGiven = given != m_binding.columnTypes.end();
    const Type declared = column.type;
    if (isGiven)
        column.type = given->second;
    column.needsCast = column.type != declared;
    const SqlTypeTrust trust = m_session.getDialect().obtainTypeTrust(column.declaredType);
    if (trust == SqlTypeTrust::Whole)
        return;

    const std::vector<Value> sample = _readSample(columns, index);
    if (isGiven)
        _requireOfType(sample, column);
    else
        column.type = _guessType(sample, declared, trust == SqlTypeTrust::None);
    column.needsCast = std::ranges::any_of(sample, [&](const Value& value) {
        if (column.type == Type::Integer || column.type == Type::Float)
            return !value.isNumber;
        return obtainTypedText(value.text, column.type) != value.text;
    });
}

std::vector<SqlColumnReader::Value> SqlColumnReader::_readSample(const std::vector<SqlColumn>& columns,
                                                                 std::size_t index) const
{
    const std::string column = "c" + std::to_string(index);
    const SqlTable rows = m_session.query(
        {writeSqlSource(m_session.getDialect(), m_binding, columns.size()) + " SELECT TYPEOF(" + column +
             "), CAST(" + column + " AS TEXT) FROM source WHERE " + column + " IS NOT NULL LIMIT 1000",
         {},
         {SqlResultType::Text, SqlResultType::Text}});
    std::vector<Value> sample;
    sample.reserve(rows.getRowCount());
    for (std::size_t row = 0; row < rows.getRowCount(); ++row)
        sample.push_back(
            {rows.getText(row, 0) == "integer" || rows.getText(row, 0) == "real", rows.getText(row, 1)});
    return sample;
}

void SqlColumnReader::_requireOfType(const std::vector<Value>& sample, const SqlColumn& column) const
{
    for (const Value& value : sample) {
        if (!value.isNumber && !value.text.empty() && !isReadable(value.text, column.type))
            throw HostError(m_binding.name, "types." + column.name,
                            '"' + value.text + "\" in the table is not " + describeType(column.type));
    }
}

KXChartDataType SqlColumnReader::_guessType(const std::vector<Value>& sample, Type declared,
                                            bool mayBeNumbers)
{
    // 1. Where nothing is said and nothing there, nothing is in the way of adding it up.
    if (sample.empty())
        return mayBeNumbers ? Type::Float : declared;

    // 2. Dates and times that the engine would not take for such are texts, and so are digits where texts are
    // declared.
    ColumnTypeGuess guess;
    for (const Value& value : sample)
        guess.addText(value.text);
    const Type type = guess.obtainType();
    const bool isReadableAll = std::ranges::all_of(
        sample, [&](const Value& value) { return value.text.empty() || isReadable(value.text, type); });
    return isTemporal(type) ? (isReadableAll ? type : declared) : (mayBeNumbers ? type : declared);
}
