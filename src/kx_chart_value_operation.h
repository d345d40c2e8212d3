#pragma once

#include "kx_chart_options.h"
#include "kx_export.h"

#include <span>

/**
 * What a line of reference tells of a list of values, NaN among which stand for nulls.
 * @param parameter of the operation: the fixed value, the percent of a share or percentile, how many sample
 * deviations are added to the mean; of no meaning for the others
 * @return NaN where the values have none, and for Trend and MovingAverage, which are no single value
 */
[[nodiscard]] KX_EXPORT double kxObtainOperationValue(KXChartValueOperation operation, double parameter,
                                                      std::span<const double> values);
