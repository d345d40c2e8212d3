#pragma once

#include "ux/ux_named_enum.h"

/** Which numbers a KPI shows large. */
UX_NAMED_ENUM(KXKpiChartMainDisplay, Actual, Comparison, Both)

/** How a KPI writes the difference to what it is compared with. */
UX_NAMED_ENUM(KXKpiDifferenceDisplay, None, Value, Percentage, Both)

/** How near a KPI is to what it should be. */
enum class KXKpiStatus : int { None, Poor, Fair, Good };
