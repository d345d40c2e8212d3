#include "csv_importer.h"

#include <set>
#include <soci/soci.h>

#include "column_type_guess.h"
#include "host_error.h"
#include "number_text.h"
#include "sql_dialect.h"
#include "sql_session.h"
#include "temporal_text.h"
#include "typed_text.h"

namespace {

/** One field of the row to insert: the prepared statement reads it from here at each execution. */
struct InsertField {
    soci::indicator indicator = soci::i_null;
    long long integer = 0;
    double number = 0;
    std::string text;
};

template <typename Target, typename Source>
bool take(Target& target, const std::optional<Source>& source)
{
    if (source)
        target = *source;
    return source.has_value();
}

/** @return whether text is of type; field then holds it, a null for an empty text */
bool readField(const std::string& text, KXChartDataType type, InsertField& field)
{
    field.indicator = text.empty() ? soci::i_null : soci::i_ok;
    if (text.empty())
        return true;
    switch (type) {
    case KXChartDataType::Integer:
        return take(field.integer, obtainInteger(text));
    case KXChartDataType::Float:
        return take(field.number, obtainFloat(text));
    case KXChartDataType::Date:
        return take(field.text, obtainDateText(text));
    case KXChartDataType::Time:
        return take(field.text, obtainTimeText(text));
    case KXChartDataType::DateTime:
        return take(field.text, obtainDateTimeText(text));
    case KXChartDataType::String:
        break;
    }
    field.text = text;
    return true;
}

/** @return name with its Latin letters in lower case, as databases compare names */
std::string foldName(std::string name)
{
    for (char& c : name)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    return name;
}

} // namespace

/** The prepared statement that takes one row after the other. */
class CsvImporter::Insertion {
public:
    Insertion(SqlSession& session, const std::string& table, const std::vector<SqlColumn>& columns)
        : m_fields(columns.size()), m_statement(session.getNative())
    {
        std::string places;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            places += (i ? ", :p" : ":p") + std::to_string(i);
            InsertField& field = m_fields[i];
            if (columns[i].type == KXChartDataType::Integer)
                m_statement.exchange(soci::use(field.integer, field.indicator));
            else if (columns[i].type == KXChartDataType::Float)
                m_statement.exchange(soci::use(field.number, field.indicator));
            else
                m_statement.exchange(soci::use(field.text, field.indicator));
        }
        m_statement.alloc();
        m_statement.prepare("INSERT INTO " + session.getDialect().quoteIdentifier(table) + " VALUES (" +
                            places + ")");
        m_statement.define_and_bind();
    }

    InsertField& getField(std::size_t column) { return m_fields[column]; }
    void insertRow() { m_statement.execute(true); }

private:
    std::vector<InsertField> m_fields;
    soci::statement m_statement;
};

CsvImporter::CsvImporter(SqlSession& session) : m_session(session) {}

void CsvImporter::declareType(const std::string& column, KXChartDataType type)
{
    m_declaredTypes[column] = type;
}

void CsvImporter::setProgressHandler(CsvReader::ProgressHandler handler)
{
    m_handleProgress = std::move(handler);
}

void CsvImporter::importFile(const std::string& path, const std::string& table)
{
    CsvReader reader(path);
    const std::vector<SqlColumn> columns = _obtainColumns(reader);
    try {
        soci::transaction transaction(m_session.getNative());
        _createTable(table, columns);
        _copyRows(reader, table, columns);
        transaction.commit();
    } catch (const soci::soci_error& error) {
        throw HostError(path, "table \"" + table + "\" in " + m_session.getName(), error.get_error_message());
    }
}

std::vector<SqlColumn> CsvImporter::_obtainColumns(CsvReader& reader) const
{
    std::vector<ColumnTypeGuess> guesses;
    reader.read(
        [&](const CsvReader::Row& row, std::uint64_t) {
            guesses.resize(row.size());
            for (std::size_t i = 0; i < row.size(); ++i)
                guesses[i].addText(row[i]);
        },
        _obtainProgress(0));

    std::vector<SqlColumn> columns(reader.getHeader().size());
    for (std::size_t i = 0; i < guesses.size(); ++i)
        columns[i].type = guesses[i].obtainType();
    _nameColumns(reader, columns);
    _declareColumns(reader, columns);
    return columns;
}

void CsvImporter::_nameColumns(const CsvReader& reader, std::vector<SqlColumn>& columns) const
{
    std::set<std::string> taken;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const std::string& name = reader.getHeader()[i];
        columns[i].name = name.empty() ? "column " + std::to_string(i + 1) : name;
        if (!taken.insert(foldName(columns[i].name)).second)
            throw reader.makeError(1, "two columns are named \"" + columns[i].name + "\"");
    }
}

void CsvImporter::_declareColumns(const CsvReader& reader, std::vector<SqlColumn>& columns) const
{
    for (const auto& [name, type] : m_declaredTypes) {
        bool isKnown = false;
        for (SqlColumn& column : columns) {
            if (column.name == name) {
                column.type = type;
                isKnown = true;
            }
        }
        if (!isKnown)
            throw reader.makeError(1, "the column \"" + name +
                                          "\", whose type is declared, is not in the header");
    }
}

void CsvImporter::_createTable(const std::string& table, const std::vector<SqlColumn>& columns)
{
    const SqlDialect& dialect = m_session.getDialect();
    std::string list;
    for (const SqlColumn& column : columns)
        list += (list.empty() ? "" : ", ") + dialect.quoteIdentifier(column.name) + ' ' +
                dialect.obtainTypeName(column.type);
    m_session.getNative() << "CREATE TABLE " + dialect.quoteIdentifier(table) + " (" + list + ")";
}

void CsvImporter::_copyRows(CsvReader& reader, const std::string& table,
                            const std::vector<SqlColumn>& columns)
{
    Insertion insertion(m_session, table, columns);
    reader.read(
        [&](const CsvReader::Row& row, std::uint64_t line) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                if (!readField(row[i], columns[i].type, insertion.getField(i)))
                    throw reader.makeError(line, "column \"" + columns[i].name + "\": \"" + row[i] +
                                                     "\" is not " + describeType(columns[i].type));
            }
            insertion.insertRow();
        },
        _obtainProgress(1));
}

CsvReader::ProgressHandler CsvImporter::_obtainProgress(std::uint64_t pass) const
{
    if (!m_handleProgress)
        return {};
    return [this, pass](std::uint64_t done, std::uint64_t total) {
        m_handleProgress(pass * total + done, 2 * total);
    };
}
