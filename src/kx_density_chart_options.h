#pragma once

#include "ux/ux_named_enum.h"

/** How a density chart shows the values of a group: a curve on a line of its own, a curve on both sides of
 * it, one line of shades, a bar for each bin, or a box from quartile to quartile with whiskers. */
UX_NAMED_ENUM(KXDensityStyle, Ridge, Violin, Strip, Histogram, Box)

/** How the steps from bin to bin are smoothed: not at all, or with a normal kernel. */
UX_NAMED_ENUM(KXDensitySmoothing, Off, Gaussian)

/** What the heights of several groups have in common: their areas, what a unit of area stands for, or the
 * greatest height. */
UX_NAMED_ENUM(KXDensityHeightScale, Share, Count, Max)
