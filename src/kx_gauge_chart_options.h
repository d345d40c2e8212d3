#pragma once

#include "ux/ux_named_enum.h"

/** Which numbers a gauge shows as text. */
UX_NAMED_ENUM(KXGaugeChartLabelDisplay, None, Actual, Comparison, Both)

/** How a gauge's dial is divided into coloured parts. */
UX_NAMED_ENUM(KXGaugeChartPartitionStyle, EvenlyDistributed, Custom)
