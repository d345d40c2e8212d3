#include "kx_chart_value_operation.h"

#include "kx_value_extremes.h"
#include "kx_value_statistics.h"

#include <limits>

namespace {

constexpr double noValue = std::numeric_limits<double>::quiet_NaN();
constexpr double whole = 100;

} // namespace

double kxObtainOperationValue(KXChartValueOperation operation, double parameter,
                              std::span<const double> values)
{
    if (operation == KXChartValueOperation::FixedValue)
        return parameter;
    const KXValueExtremes extremes = kxFindValueExtremes(values);
    if (extremes.isEmpty())
        return noValue;
    switch (operation) {
    case KXChartValueOperation::Minimum:
        return extremes.min;
    case KXChartValueOperation::Maximum:
        return extremes.max;
    case KXChartValueOperation::Average:
        return kxObtainMean(values);
    case KXChartValueOperation::Median:
        return kxObtainPercentile(values, 0.5);
    case KXChartValueOperation::ShareOfSum:
        return parameter / whole * kxObtainSum(values);
    case KXChartValueOperation::Percentile:
        return kxObtainPercentile(values, parameter / whole);
    case KXChartValueOperation::StandardDeviation:
        return kxObtainMean(values) + parameter * kxObtainSampleDeviation(values);
    case KXChartValueOperation::FixedValue:
    case KXChartValueOperation::Trend:
    case KXChartValueOperation::MovingAverage:
        break;
    }
    return noValue;
}
