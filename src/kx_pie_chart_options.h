#pragma once

#include "ux/ux_named_enum.h"

/** How small slices of a pie are gathered. */
UX_NAMED_ENUM(KXPieChartSliceStyle, Default, NumOfSliceDisplay, GroupValueLessThan)
