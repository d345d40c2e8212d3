#pragma once

#include <cstdint>
#include <limits>

/** The measures of a gauge's provider, by index. */
enum KXGaugeMeasure : std::uint64_t {
    kxGaugeValue,
    kxGaugeTarget,
    kxGaugeMinimum,
    kxGaugeMaximum,
    kxGaugeMeasureCount
};

/** A dial is divided into no more parts. */
constexpr int kxGreatestGaugePartitionCount = 8;

/** @return whether it is a number that the host gave: finite, and none of the two that stand for none */
[[nodiscard]] inline bool kxIsGaugeNumber(double number)
{
    return number > std::numeric_limits<double>::lowest() && number < (std::numeric_limits<double>::max)();
}
