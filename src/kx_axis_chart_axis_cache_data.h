#pragma once

#include <cstdint>
#include <vector>

/** What a chart knows about one of its axes: the data's range, filled in with the data, and the range and
 *  tick interval made of it. kxUpdateAxisCacheData makes the one of the other. */
struct KXAxisChartAxisCacheData {
    double dataMin = 0, dataMax = 0;
    double stackedMin = 0, stackedMax = 0; /**< of the sums of each category, where hasSums */
    double axisMin = 0, axisMax = 0, tickInterval = 0;
    double presetTickInterval = 0; /**< above 0, in place of the automatic interval */
    bool needsUpdate = true;
    bool isUnstackable = false; /**< the marks place themselves, whatever the property says of stacks */
    bool isMirrored = false;    /**< the range from 0 to the data's maximum stands on both sides of zero */
    bool hasSums = false;       /**< only stacked axes need them, and they take a look at each value */
    bool isValueAxis = true;    /**< off: the axis counts categories */
    bool isSmallRange = false;  /**< a range below the wanted number of ticks is one interval */
    bool isNumberDimension = false; /**< what the categories are, where there are some */
    bool isTemporalDimension = false;
    bool isLogarithmic =
        false; /**< the range made of the data's is one of exponents to base ten; so are ticks */
    std::uint64_t categoryCount = 0;
    /** Ticks of an axis of values that do not stand in even intervals, each above the one before: where there
     * are any, those are its ticks, as days that begin months are. */
    std::vector<double> ownTicks;
};
