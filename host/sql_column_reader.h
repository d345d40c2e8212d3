#pragma once

#include <string>
#include <vector>

#include "sql_column.h"

class SqlSession;
struct DataBinding;

/** Finds out what the columns of a binding's table hold: what the types of the binding say, else what is
 *  declared; and, where an engine does not keep to what is declared, what the first values are of the columns
 *  that the binding names. */
class SqlColumnReader {
public:
    /** @param session, binding outlive this object */
    SqlColumnReader(SqlSession& session, const DataBinding& binding);

    /** @return all columns of the table in order; throws HostError when there is no such table, when a type
     *  is given for a column that it has not, and for a value that is not of the type given */
    std::vector<SqlColumn> readColumns() const;

private:
    struct Value {
        bool isNumber = false;
        std::string text;
    };

    bool _isNamed(const std::string& column) const;
    void _readType(std::vector<SqlColumn>& columns, std::size_t index) const;
    std::vector<Value> _readSample(const std::vector<SqlColumn>& columns, std::size_t index) const;
    void _requireOfType(const std::vector<Value>& sample, const SqlColumn& column) const;
    static KXChartDataType _guessType(const std::vector<Value>& sample, KXChartDataType declared,
                                      bool mayBeNumbers);

    SqlSession& m_session;
    const DataBinding& m_binding;
};
