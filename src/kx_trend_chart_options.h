#pragma once

#include "ux/ux_named_enum.h"

/** How a trend chart writes the difference to the value before. */
UX_NAMED_ENUM(KXTrendChartDiffDisplay, Value, Percentage)
