#pragma once

#include "kx_named_enum.h"

/** How closely rows or marks are set. */
KX_NAMED_ENUM(KXChartDataDensity, Loose, Medium, Compact)
