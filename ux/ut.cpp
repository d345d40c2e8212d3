#include "ux/ut.h"

#include "ux/ux_assert.h"

#include <cmath>

bool utAssert(bool condition, std::source_location location) { return uxAssert(condition, location); }

int utCompareDoubles(double a, double b)
{
    constexpr double tolerance = 1e-8;
    if (std::isnan(a) || std::isnan(b))
        return static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a));
    // Equal infinities are not a finite distance apart.
    if (a == b || std::abs(a - b) <= tolerance)
        return 0;
    return a < b ? -1 : 1;
}

std::string utToString(std::uint64_t value) { return std::to_string(value); }
