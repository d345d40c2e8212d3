#include "sql_totals.h"

#include <limits>
#include <map>
#include <string>
#include <utility>

#include "sql_data_set.h"

namespace {

/** What tells members of one dimension apart. */
std::pair<bool, std::string> obtainName(const SqlMember& member) { return {member.isNull, member.text}; }

} // namespace

SqlTotals::SqlTotals(SqlSession& session, const DataBinding& binding, const SqlDataSet& data)
{
    if (data.getDimensionCount() != m_values.size() || data.getMeasureCount() == 0)
        return;
    DataBinding reduced = binding;
    reduced.dimensions.clear();
    m_grandTotal = SqlDataSet(session, reduced).obtainNumber(0, {});
    for (std::size_t dimension = 0; dimension < m_values.size(); ++dimension) {
        reduced.dimensions = {binding.dimensions[dimension]};
        const SqlDataSet totals(session, reduced);
        std::map<std::pair<bool, std::string>, double> byName;
        for (std::uint64_t i = 0; i < totals.getMembers(0).size(); ++i)
            byName[obtainName(totals.getMembers(0)[i])] = totals.obtainNumber(0, std::span(&i, 1));
        m_values[dimension].reserve(data.getMembers(dimension).size());
        for (const SqlMember& member : data.getMembers(dimension)) {
            const auto found = byName.find(obtainName(member));
            m_values[dimension].push_back(found == byName.end() ? std::numeric_limits<double>::quiet_NaN()
                                                                : found->second);
        }
    }
}
