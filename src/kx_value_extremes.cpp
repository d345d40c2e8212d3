#include "kx_value_extremes.h"

#include <algorithm>
#include <array>
#include <cstddef>

KXValueExtremes kxFindValueExtremes(std::span<const double> values)
{
    constexpr KXValueExtremes none;
    // Several at a time: none has to wait for the comparison before it. NaN compares false and is left out.
    constexpr std::size_t lanes = 8;
    std::array<double, lanes> mins, maxes;
    mins.fill(none.min);
    maxes.fill(none.max);
    const auto take = [&](std::size_t lane, double value) {
        mins[lane] = value < mins[lane] ? value : mins[lane];
        maxes[lane] = value > maxes[lane] ? value : maxes[lane];
    };
    std::size_t i = 0;
    for (; i + lanes <= values.size(); i += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            take(lane, values[i + lane]);
    for (; i < values.size(); ++i)
        take(0, values[i]);
    return {*std::ranges::min_element(mins), *std::ranges::max_element(maxes)};
}
