#pragma once

/** How much a reset takes from its source: everything, or the look without texts and settings. */
enum class KXChartResetType : int { All = 0, Style = 1 };

/** What a line of reference tells of the values of a chart. Documents hold its number. */
enum class KXChartValueOperation : int {
    FixedValue,
    Minimum,
    Maximum,
    Average,
    Median,
    ShareOfSum,
    Percentile,
    StandardDeviation,
    Trend,
    MovingAverage
};
