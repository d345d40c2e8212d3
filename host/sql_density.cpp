#include "sql_density.h"

#include <limits>

#include "sql_column_reader.h"
#include "sql_data_set.h"
#include "sql_query_builder.h"
#include "sql_session.h"

std::map<SqlDensity::Name, double> SqlDensity::_ask(std::optional<double> share)
{
    std::map<Name, double> answers;
    SqlQueryBuilder builder(m_session.getDialect(), m_binding,
                            SqlColumnReader(m_session, m_binding).readColumns());
    if (!builder.hasValuesBehindMembers())
        return answers;
    const SqlTable rows = m_session.query(builder.obtainQuantileQuery(share));
    for (std::size_t row = 0; row < rows.getRowCount(); ++row) {
        if (rows.isNull(row, 1))
            continue;
        const bool isNull = rows.isNull(row, 0);
        answers[{isNull, isNull ? m_binding.nullText : rows.getText(row, 0)}] = rows.getNumber(row, 1);
    }
    return answers;
}

double SqlDensity::obtainQuantile(const SqlMember* group, std::optional<double> share)
{
    constexpr double unknown = std::numeric_limits<double>::quiet_NaN();
    auto found = m_answers.find(share);
    if (found == m_answers.end())
        found = m_answers.emplace(share, _ask(share)).first;
    const std::map<Name, double>& answers = found->second;
    if (!group)
        return answers.size() == 1 ? answers.begin()->second : unknown;
    const auto own = answers.find({group->isNull, group->text});
    return own == answers.end() || group->isOthers() ? unknown : own->second;
}
