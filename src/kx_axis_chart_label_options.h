#pragma once

#include "ux/ux_named_enum.h"

/** What the label of one value says. */
UX_NAMED_ENUM(KXAxisChartLabelDisplayOption, ValueOnly, PercentageOnly, ValueAndPercentage, Title)

/** Which values of a series get a label. */
UX_NAMED_ENUM(KXAxisChartValueOption, All, LineEnds, MinOnly, MaxOnly, MinMax, PositiveOnly, NegativeOnly,
              TurningPoint)
