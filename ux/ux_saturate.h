#pragma once

#include <cmath>
#include <concepts>
#include <limits>
#include <utility>

/** @return value, or int's nearest limit where int cannot hold it */
template <std::integral Integer>
[[nodiscard]] constexpr int uxSaturateToInt(Integer value)
{
    using Limits = std::numeric_limits<int>;
    if (std::cmp_less(value, (Limits::min)()))
        return (Limits::min)();
    return std::cmp_greater(value, (Limits::max)()) ? (Limits::max)() : static_cast<int>(value);
}

/** @return value without its fraction, int's nearest limit beyond int's range, 0 for NaN */
[[nodiscard]] constexpr int uxSaturateToInt(double value)
{
    using Limits = std::numeric_limits<int>;
    if (value != value)
        return 0;
    if (value <= (Limits::min)())
        return (Limits::min)();
    return value >= (Limits::max)() ? (Limits::max)() : static_cast<int>(value);
}

/** @return the whole number nearest to value, the larger one of two, with the limits of uxSaturateToInt */
[[nodiscard]] inline int uxRoundToInt(double value) { return uxSaturateToInt(std::floor(value + 0.5)); }
