#pragma once

#include <algorithm>
#include <cmath>

/** Where the values of an axis lie along it, in logical units of the plot's space: a straight line. */
struct KXAxisChartLinearScale {
    double value = 0;    /**< any value */
    double position = 0; /**< where it lies */
    double spacing = 0;  /**< from one value to the next whole one; below 0 where values grow upwards */

    /** @return a place that a back end can draw at, whatever the number is; that of value for NaN */
    double obtainPosition(double number) const
    {
        constexpr double farthest = 1e7;
        const double distance = (number - value) * spacing;
        return std::isnan(distance) ? position : std::clamp(position + distance, -farthest, farthest);
    }
    /** @return the value at a place; value where the axis has no extent */
    double obtainValue(double place) const
    {
        return spacing == 0 ? value : value + (place - position) / spacing;
    }
};
