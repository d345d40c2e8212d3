#pragma once

#include "ux/ux_named_enum.h"

/** Which numbers a KPI shows large. */
UX_NAMED_ENUM(KXKpiChartMainDisplay, Actual, Comparison, Both)
