#pragma once

#include "kx_named_enum.h"

/** Whether an axis counts members or measures a continuous quantity. */
KX_NAMED_ENUM(KXChartDataStyle, Discrete, Continuous)
