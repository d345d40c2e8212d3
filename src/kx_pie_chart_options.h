#pragma once

#include "ux/ux_named_enum.h"

/** How small slices of a pie are gathered: not at all, beyond a number of slices, or below a percentage. */
UX_NAMED_ENUM(KXPieChartSliceStyle, Default, NumOfSliceDisplay, GroupValueLessThan)

/** In which order the slices of a pie follow each other: the host's, or by size. */
UX_NAMED_ENUM(KXPieSliceOrder, None, Descending, Ascending)

/** Where the labels of slices stand: beside the pie or, where there is no room, inside; inside; beside;
 * nowhere. */
UX_NAMED_ENUM(KXPieLabelPosition, Auto, Inside, Outside, None)
