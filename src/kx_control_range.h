#pragma once

#include "kx_export.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

/** What a range can be chosen from: the ends of a scale, how much lies where on it, and the numbers of the
 * members where ends are to stand on these. */
class KX_EXPORT KXControlRange {
public:
    /** No more parts of the scale are told apart, and so many by a host. */
    static constexpr std::size_t partCount = 48;

    /** Has no scale. */
    KXControlRange() = default;
    /** @param lowest, greatest the ends; NaN, or the wrong way round: no scale
     *  @param counts of equal parts of it, may be empty */
    KXControlRange(double lowest, double greatest, std::vector<double> counts);
    /** @param numbers of the members; one that is not finite is left out
     *  @param weights of the members, fewer for ones */
    KXControlRange(std::span<const double> numbers, std::span<const double> weights);

    bool isEmpty() const { return !(m_greatest >= m_lowest); }
    double getLowest() const { return m_lowest; }
    double getGreatest() const { return m_greatest; }
    /** @return as many as there are parts, or none */
    const std::vector<double>& getCounts() const { return m_counts; }
    bool hasMembers() const { return !m_members.empty(); }
    /** @return the least distance between the numbers of two members, 0 where there are less than two */
    double obtainLeastGap() const;
    /** @return the number of the member nearest to value; value without members */
    double obtainNearest(double value) const;
    /** @return the last member whose number is below value, or the first one whose number is above it */
    std::optional<std::uint64_t> findMemberBelow(double value) const;
    std::optional<std::uint64_t> findMemberAbove(double value) const;
    /** @return NaN for a member without a number */
    double obtainNumber(std::uint64_t member) const;

private:
    using Member = std::pair<double, std::uint64_t>; // number and index

    void _count(std::span<const double> weights);

    double m_lowest = std::numeric_limits<double>::quiet_NaN();
    double m_greatest = std::numeric_limits<double>::quiet_NaN();
    std::vector<double> m_counts;
    std::vector<Member> m_members; // ascending
};
