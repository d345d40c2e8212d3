#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "data_binding.h"

class SqlDataSet;
class SqlSession;

/** Which part of each value of a data set belongs to what is chosen elsewhere: one more query, with what is
 * chosen as a condition beside the binding's own. Of averages and extremes there is no part. */
class SqlHighlight {
public:
    /** Nothing is chosen. */
    SqlHighlight() = default;
    /** Asks the database, unless the binding highlights nothing; throws HostError when it refuses.
     * @param whole what the same binding answers */
    SqlHighlight(SqlSession& session, const DataBinding& binding, const SqlDataSet& whole);

    /** @return whether something is chosen, and values of the measure have parts */
    bool isTold(std::size_t measure) const { return measure < m_areTold.size() && m_areTold[measure]; }
    /** @param members of the whole, one index per dimension; what is beyond the dimensions is not looked at
     * @return the part of a value, 0 where none of its rows is chosen */
    double obtainNumber(std::size_t measure, std::span<const std::uint64_t> members) const;

private:
    std::size_t m_dimensionCount = 0;
    std::vector<bool> m_areTold;                                        // by measure
    std::map<std::vector<std::uint64_t>, std::vector<double>> m_values; // by members, one a measure
};
