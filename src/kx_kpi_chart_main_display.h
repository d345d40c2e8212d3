#pragma once

#include "kx_named_enum.h"

/** Which numbers a KPI shows large. */
KX_NAMED_ENUM(KXKpiChartMainDisplay, Actual, Comparison, Both)
