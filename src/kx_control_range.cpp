#include "kx_control_range.h"

#include <algorithm>
#include <cmath>

// Hosts may refer to it, on Windows too
constexpr std::size_t KXControlRange::partCount;

KXControlRange::KXControlRange(double lowest, double greatest, std::vector<double> counts)
    : m_counts(std::move(counts))
{
    if (!std::isfinite(lowest) || !std::isfinite(greatest) || greatest < lowest)
        return;
    m_lowest = lowest;
    m_greatest = greatest;
}

KXControlRange::KXControlRange(std::span<const double> numbers, std::span<const double> weights)
{
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (std::isfinite(numbers[i]))
            m_members.emplace_back(numbers[i], i);
    if (m_members.empty())
        return;
    std::ranges::sort(m_members);
    m_lowest = m_members.front().first;
    m_greatest = m_members.back().first;
    _count(weights);
}

/** Where the numbers stand evenly, each part holds as many of them, so that none looks as if it held more. */
void KXControlRange::_count(std::span<const double> weights)
{
    // 1. As many steps as different numbers, where these stand about evenly.
    std::size_t steps = 1;
    for (std::size_t i = 1; i < m_members.size(); ++i)
        steps += m_members[i].first != m_members[i - 1].first;
    const double half = m_greatest / 2 - m_lowest / 2; // the whole may be beyond the greatest number
    constexpr double greatestUnevenness = 1.5;
    if (steps > 1 && half * 2 > greatestUnevenness * static_cast<double>(steps - 1) * obtainLeastGap())
        steps = partCount;

    // 2. Whole numbers of steps to a part.
    const std::size_t stepsPerPart = (steps + partCount - 1) / partCount;
    m_counts.resize((steps - 1) / stepsPerPart + 1);
    for (const auto& [number, member] : m_members) {
        const double share = half > 0 ? (number / 2 - m_lowest / 2) / half : 0;
        const auto step = static_cast<std::size_t>(std::llround(share * static_cast<double>(steps - 1)));
        double& count = m_counts[std::min(step, steps - 1) / stepsPerPart];
        const double weight = member < weights.size() ? weights[member] : 1;
        if (weight > 0)
            count = std::min(count + weight, (std::numeric_limits<double>::max)());
    }
}

double KXControlRange::obtainLeastGap() const
{
    double least = 0;
    for (std::size_t i = 1; i < m_members.size(); ++i) {
        const double gap = m_members[i].first - m_members[i - 1].first;
        if (gap > 0 && (least == 0 || gap < least))
            least = gap;
    }
    return least;
}

double KXControlRange::obtainNearest(double value) const
{
    const auto above = std::ranges::lower_bound(m_members, value, {}, &Member::first);
    if (above == m_members.end())
        return m_members.empty() ? value : m_members.back().first;
    if (above == m_members.begin())
        return above->first;
    const double below = std::prev(above)->first;
    return value - below <= above->first - value ? below : above->first;
}

std::optional<std::uint64_t> KXControlRange::findMemberBelow(double value) const
{
    const auto above = std::ranges::lower_bound(m_members, value, {}, &Member::first);
    return above == m_members.begin() ? std::nullopt : std::optional(std::prev(above)->second);
}

std::optional<std::uint64_t> KXControlRange::findMemberAbove(double value) const
{
    const auto above = std::ranges::upper_bound(m_members, value, {}, &Member::first);
    return above == m_members.end() ? std::nullopt : std::optional(above->second);
}

double KXControlRange::obtainNumber(std::uint64_t member) const
{
    const auto found = std::ranges::find(m_members, member, &Member::second);
    return found == m_members.end() ? std::numeric_limits<double>::quiet_NaN() : found->first;
}
