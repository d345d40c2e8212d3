#pragma once

#include "ux/ux_named_enum.h"

/** How closely rows or marks are set. */
UX_NAMED_ENUM(KXChartDataDensity, Loose, Medium, Compact)
