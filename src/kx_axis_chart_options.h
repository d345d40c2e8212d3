#pragma once

#include "ux/ux_named_enum.h"

/** The direction in which the values of an axis chart grow. */
UX_NAMED_ENUM(KXAxisChartOrientation, Vertical, Horizontal)

/** How one series of an axis chart is drawn, and on which of the two value axes. */
UX_NAMED_ENUM(KXAxisChartType, Unknown, Bar, Line, SecondaryLine, Area, SecondaryArea, Scatter)

/** Whether an axis counts members or measures a continuous quantity. */
UX_NAMED_ENUM(KXChartDataStyle, Discrete, Continuous)

/** How closely rows or marks are set. */
UX_NAMED_ENUM(KXChartDataDensity, Loose, Medium, Compact)

/** What the label of one value says. */
UX_NAMED_ENUM(KXAxisChartLabelDisplayOption, ValueOnly, PercentageOnly, ValueAndPercentage, Title)

/** Which values of a series get a label. */
UX_NAMED_ENUM(KXAxisChartValueOption, All, LineEnds, MinOnly, MaxOnly, MinMax, PositiveOnly, NegativeOnly,
              TurningPoint)
