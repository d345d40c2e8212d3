#pragma once

/** The step to which a date or time is cut down for grouping. The numbers are the grouping levels that the
 * charts' formatting knows; year, month and day of week are read there as plain dates. */
enum class DateLevel {
    Year = 11,
    Quarter = 12,
    Month = 13,
    Week = 14,
    Day = 15,
    Hour = 16,
    Minute = 17,
    Second = 18,
    DayOfWeek = 24
};
