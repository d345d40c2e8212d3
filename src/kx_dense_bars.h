#pragma once

#include "kx_bar_layout.h"

/**
 * Merges bars that are closer together than device pixels are: each pixel column is filled from the lowest
 * end to the highest one of the bars that touch it, so that no extreme is lost, and stands for the category
 * and the series that it comes from.
 *
 * Series side by side keep columns of their own, in their order, so that they look like the groups that they
 * are: a category with room for it has such a group to itself, of which neighbouring series share a column
 * where there are more of them than columns; with less room some neighbouring categories have one together.
 * Of stacks a column shows the one that reaches highest and the one that reaches lowest, as they are.
 *
 * The work is one look at each value; what is kept grows with the pixels alone.
 */
[[nodiscard]] KX_EXPORT KXBarLayout kxLayoutDenseBars(const KXAxisChartStacks& source,
                                                      const KXBarPlane& plane);
