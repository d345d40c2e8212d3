#pragma once

#include <algorithm>

/** @return extent as it can be drawn: at least 0, and not so large that what is made of it is beyond a
 * double; no picture is so large */
[[nodiscard]] inline double kxBoundExtent(double extent)
{
    constexpr double greatestExtent = 1e5;
    return extent > 0 ? (std::min)(extent, greatestExtent) : 0;
}
