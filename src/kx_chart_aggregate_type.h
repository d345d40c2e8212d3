#pragma once

/** The grouping level that the host applied to a column, as the host's own number; any number is valid by
 *  cast. Named are the levels that the formatting of dates and times tells apart. */
enum class KXChartAggregateType : int {
    None = 0, // a day for a date, a second where there is a time
    Quarter = 12,
    Week = 14,
    Day = 15,
    Hour = 16,
    Minute = 17,
    Second = 18,
    WithoutDay = 20,
    HoursAlone = 25,
    MinutesAlone = 26,
    SecondsAlone = 27
};
