#pragma once

#include "kx_bar_layout.h"

/**
 * Merges bars that are closer together than device pixels are, with what can be seen of them left as it is:
 * each pixel column is filled from the lowest end to the highest one of the bars that touch it. Side by side,
 * every series keeps its own ends: the longer bars are seen beyond the shorter ones. Of stacks a column shows
 * the one that reaches highest and the one that reaches lowest, as they are. A bar stands for the category
 * that it comes from. The work is one look at each value.
 */
[[nodiscard]] KX_EXPORT KXBarLayout kxLayoutDenseBars(const KXAxisChartStacks& source,
                                                      const KXBarPlane& plane);
