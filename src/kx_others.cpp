#include "kx_others.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <limits>
#include <vector>

namespace {

constexpr double greatest = (std::numeric_limits<double>::max)();

/** @return which members have a smaller part of the whole than leastShare */
std::vector<bool> findSmall(std::span<const double> values, double leastShare)
{
    // Divided by the largest first, no sum of magnitudes is beyond a double.
    double largest = 0, whole = 0;
    for (const double value : values)
        largest = std::max(largest, std::isnan(value) ? 0 : std::abs(value));
    std::vector<bool> isSmall(values.size());
    if (largest == 0)
        return isSmall;
    for (const double value : values)
        whole += std::isnan(value) ? 0 : std::abs(value) / largest;
    for (std::size_t i = 0; i < values.size(); ++i)
        isSmall[i] = std::abs(values[i]) / largest < leastShare * whole;
    return isSmall;
}

/** Takes the members beyond the count largest ones; of equal ones the later are beyond. */
void addBeyondCount(std::span<const double> values, std::uint64_t count, std::vector<bool>& isTaken)
{
    std::vector<std::size_t> left;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (!isTaken[i] && !std::isnan(values[i]))
            left.push_back(i);
    if (left.size() <= count)
        return;
    std::ranges::stable_sort(left, std::ranges::greater(),
                             [&](std::size_t i) { return std::abs(values[i]); });
    for (std::size_t i = static_cast<std::size_t>(count); i < left.size(); ++i)
        isTaken[left[i]] = true;
}

} // namespace

KXOthers kxGatherOthers(std::span<const double> values, const KXOthersRule& rule)
{
    // 1. The host's own is one of them, and takes no place of the others.
    std::vector<bool> isTaken = findSmall(values, rule.leastShare);
    if (rule.hostOthers && *rule.hostOthers < values.size())
        isTaken[static_cast<std::size_t>(*rule.hostOthers)] = true;
    if (rule.greatestCount)
        addBeyondCount(values, *rule.greatestCount, isTaken);

    // 2. One alone keeps its place.
    if (std::ranges::count(isTaken, true) < 2)
        isTaken.assign(isTaken.size(), false);

    KXOthers others;
    for (std::size_t i = 0; i < values.size(); ++i) {
        (isTaken[i] ? others.gathered : others.kept).push_back(i);
        if (isTaken[i] && !std::isnan(values[i]))
            others.sum = std::clamp(others.sum + values[i], -greatest, greatest);
    }
    return others;
}
