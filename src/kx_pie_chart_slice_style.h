#pragma once

#include "kx_named_enum.h"

/** How small slices of a pie are gathered. */
KX_NAMED_ENUM(KXPieChartSliceStyle, Default, NumOfSliceDisplay, GroupValueLessThan)
