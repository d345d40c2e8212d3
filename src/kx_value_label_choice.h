#pragma once

#include "kx_axis_chart_options.h"
#include "kx_export.h"

#include <cstdint>
#include <span>

class KXCategoryPlaces;

/** What the labels of one series depend on beside each value. */
struct KXSeriesFacts {
    std::uint64_t first = 0, last = 0;     /**< categories of the first and the last value along the axis */
    std::uint64_t least = 0, greatest = 0; /**< of the extremes, of several equal ones the first */
};

/** @param values one a category, NaN for a null
 *  @param places where the categories lie, by which values follow each other */
[[nodiscard]] KX_EXPORT KXSeriesFacts kxObtainSeriesFacts(std::span<const double> values,
                                                          const KXCategoryPlaces& places);

/** @param facts those of values and places
 *  @return whether option gives a label to the value of category; never to a null */
[[nodiscard]] KX_EXPORT bool kxIsValueLabelled(KXAxisChartValueOption option, const KXSeriesFacts& facts,
                                               std::span<const double> values, const KXCategoryPlaces& places,
                                               std::uint64_t category);
