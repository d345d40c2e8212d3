#pragma once

#include "kx_axis_chart_axis_cache_data.h"
#include "kx_chart_data_type.h"
#include "kx_export.h"

#include <cstddef>
#include <string>
#include <vector>

class KXAxisProperty;
class KXChartDataFormat;

/**
 * Rounds an amount to 1, 2 or 5 times a power of ten.
 * @param forTicks rounds to the nearest, as suits an interval; otherwise up, as suits a whole range
 * @return 0 below 1e-8 and for NaN, the largest double where the rounded amount is beyond it
 */
[[nodiscard]] KX_EXPORT double kxCalculateSuitableRange(double amount, bool forTicks);

/** Notes in the record of a category axis what its categories are. */
KX_EXPORT void kxSetAxisDimension(KXAxisChartAxisCacheData& cache, KXChartDataType type);

/**
 * Makes range and tick interval of the data's range and the user's settings if the record is stale. An
 * automatic range is left in the property's custom pair where that pair is unusable, without mark or event,
 * so that a user who switches to a custom range starts from the data.
 * @param roundsRange whether an automatic range gets rounded bounds with headroom
 * @return whether there was anything to do; false for null too
 */
KX_EXPORT bool kxUpdateAxisCacheData(KXAxisProperty* property, KXAxisChartAxisCacheData* cache,
                                     bool roundsRange);

/** @return how many ticks the axis has from end to end, at int's limit where they are more. Value axes with
 *          less than one interval have none. */
[[nodiscard]] KX_EXPORT int kxObtainAxisTickCount(const KXAxisChartAxisCacheData& cache);

/** @return the value of a tick; its index counts from 0 at the axis's minimum */
[[nodiscard]] KX_EXPORT double kxObtainAxisTick(const KXAxisChartAxisCacheData& cache, int index);

/** @return the index of the tick from which those with a label are counted: that at zero of a mirrored axis,
 *          else the first */
[[nodiscard]] KX_EXPORT int kxObtainAxisAnchorTick(const KXAxisChartAxisCacheData& cache);

/**
 * The ticks from first to last, without looking at those outside. Where there can be more than limit in
 * a window of this length, every n-th tick of the axis is kept.
 * @return finite values, each above the one before, at most limit
 */
[[nodiscard]] KX_EXPORT std::vector<double> kxObtainAxisTicks(const KXAxisChartAxisCacheData& cache,
                                                              double first, double last, std::size_t limit);

/** @return ten to the power of exponent, without the noise of that: the exponent of 2 gives 2 */
[[nodiscard]] KX_EXPORT double kxObtainValueOfExponent(double exponent);

/** @return three significant digits and a percent sign: 33.3 is "33.3%" */
[[nodiscard]] KX_EXPORT std::string kxFormatPercentage(double value);

/** @return the text of a tick of a value axis: a percentage where the axis runs to 100 percent, otherwise
 *          what format makes of the number */
[[nodiscard]] KX_EXPORT std::string kxFormatAxisTick(const KXAxisProperty& property,
                                                     const KXChartDataFormat& format, double value);
