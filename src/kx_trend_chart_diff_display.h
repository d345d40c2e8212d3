#pragma once

#include "kx_named_enum.h"

/** How a trend chart writes the difference to the value before. */
KX_NAMED_ENUM(KXTrendChartDiffDisplay, Value, Percentage)
