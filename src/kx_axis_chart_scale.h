#pragma once

#include <algorithm>
#include <cmath>

/** Where the values of an axis lie along it, in logical units of the plot's space: on a straight line of what
 * the axis counts, which are the values or, on a logarithmic one, their exponents to base ten. */
struct KXAxisChartScale {
    double value = 0;    /**< any value of the axis, its least one where it is logarithmic */
    double position = 0; /**< where it lies */
    double spacing = 0;  /**< from one value to the next whole one; below 0 where values grow upwards */
    bool isLogarithmic = false; /**< values that are not above zero lie where the axis begins */
    double gap = 0; /**< how much further values from 0 on lie than those up to -0, as spacing is directed */

    /** @return a place that a back end can draw at, whatever the number is; that of value for NaN */
    double obtainPosition(double number) const
    {
        constexpr double farthest = 1e7;
        if (isLogarithmic)
            number = number > 0 ? std::log10(number) : value;
        double distance = (number - value) * spacing;
        if (gap != 0 && !std::signbit(number))
            distance += gap;
        return std::isnan(distance) ? position : std::clamp(position + distance, -farthest, farthest);
    }
    /** @return the value at a place; that of the axis's beginning where it has no extent */
    double obtainValue(double place) const
    {
        double found = spacing == 0 ? value : value + (place - position) / spacing;
        if (gap != 0 && spacing != 0 && found > 0)
            found = std::max(found - gap / spacing, 0.0);
        return isLogarithmic ? std::pow(10.0, found) : found;
    }
};
