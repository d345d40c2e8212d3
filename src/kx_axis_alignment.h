#pragma once

#include "kx_export.h"

struct KXAxisChartAxisCacheData;
struct KXValueExtremes;

/**
 * Gives a second axis as many intervals as a first one has, so that one grid serves both: of 1, 2, 2.5 or 5
 * times a power of ten, the shortest that hold its data. Where both ranges hold zero, it lies at one height;
 * the first one grows where it has no interval on a side of zero on which the second one has data.
 * @param data what the second one has to hold
 * @return whether they stand so now; otherwise both are as they were, as where the first one's ends are no
 * whole intervals
 */
[[nodiscard]] KX_EXPORT bool kxAlignAxes(KXAxisChartAxisCacheData& first, KXAxisChartAxisCacheData& second,
                                         const KXValueExtremes& data);
