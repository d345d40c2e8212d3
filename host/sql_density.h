#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "data_binding.h"

class SqlSession;
struct SqlMember;

/** What the database says of the numbers behind bins: these are the last of one or two dimensions of a
 * binding, the first of two are groups, and the measure counts rows. Each share is asked for once. */
class SqlDensity {
public:
    /** @param session outlives this object */
    SqlDensity(SqlSession& session, const DataBinding& binding) : m_session(session), m_binding(binding) {}

    /** @param group null for all
     *  @param share 0 to 1; without it the mean
     *  @return NaN where the database does not know it: the bins have weights, or the group is made of
     * others. Throws HostError when it refuses. */
    double obtainQuantile(const SqlMember* group, std::optional<double> share);

private:
    using Name = std::pair<bool, std::string>; // null, text
    std::map<Name, double> _ask(std::optional<double> share);

    SqlSession& m_session;
    DataBinding m_binding;
    std::map<std::optional<double>, std::map<Name, double>> m_answers;
};
