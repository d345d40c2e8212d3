#pragma once

#include "ux/ux_named_enum.h"

/** What a slider lets the user choose: one value, a limit, or both limits. */
UX_NAMED_ENUM(KXChartSliderType, Val, Min, Max, Range)
