#pragma once

#include "ux/ux_named_enum.h"

/** Whether an axis counts members or measures a continuous quantity. */
UX_NAMED_ENUM(KXChartDataStyle, Discrete, Continuous)
