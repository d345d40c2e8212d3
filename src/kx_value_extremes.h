#pragma once

#include "kx_export.h"

#include <algorithm>
#include <limits>
#include <span>

/** The least and the greatest of some values; min is above max where there is none. */
struct KXValueExtremes {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    void take(const KXValueExtremes& other)
    {
        min = std::min(min, other.min);
        max = std::max(max, other.max);
    }
    bool isEmpty() const { return min > max; }
};

/** @param values NaN among them is left out */
[[nodiscard]] KX_EXPORT KXValueExtremes kxFindValueExtremes(std::span<const double> values);
