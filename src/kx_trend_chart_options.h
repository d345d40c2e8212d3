#pragma once

#include "ux/ux_named_enum.h"

/** How a trend chart writes the difference to the value before. */
UX_NAMED_ENUM(KXTrendChartDiffDisplay, Value, Percentage)

/** What the last value of a trend is compared with: the value before, that of some steps back, or that of the
 * same time a year before. */
UX_NAMED_ENUM(KXTrendComparison, Previous, StepsBack, YearBefore)
