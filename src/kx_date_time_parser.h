#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"
#include "kx_date_time_fields.h"

#include <string_view>

/** Reads a value of type Date, Time or DateTime. A date is read as a whole or not at all, what follows it is
 * ignored; a time is searched for in the text.
 *  @return the fields that are shown at the level; secondDecimals is a part of value */
[[nodiscard]] KXDateTimeFields kxParseDateTime(std::string_view value, KXChartDataType type,
                                               KXChartAggregateType level);
