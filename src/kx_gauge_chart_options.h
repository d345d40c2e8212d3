#pragma once

#include "kx_named_enum.h"

/** Which numbers a gauge shows as text. */
KX_NAMED_ENUM(KXGaugeChartLabelDisplay, None, Actual, Comparison, Both)

/** How a gauge's dial is divided into coloured parts. */
KX_NAMED_ENUM(KXGaugeChartPartitionStyle, EvenlyDistributed, Custom)
