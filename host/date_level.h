#pragma once

#include "kx_chart_aggregate_type.h"

/** The step to which a date or time is cut down for grouping, numbered as the charts' formatting numbers its
 * levels; year, month and day of week are of the host alone and read there as plain dates. */
enum class DateLevel {
    Year = 11,
    Quarter = static_cast<int>(KXChartAggregateType::Quarter),
    Month = 13,
    Week = static_cast<int>(KXChartAggregateType::Week),
    Day = static_cast<int>(KXChartAggregateType::Day),
    Hour = static_cast<int>(KXChartAggregateType::Hour),
    Minute = static_cast<int>(KXChartAggregateType::Minute),
    Second = static_cast<int>(KXChartAggregateType::Second),
    DayOfWeek = 24,
    HourOfDay = static_cast<int>(
        KXChartAggregateType::HoursAlone) /**< its members are times without a date */
};
