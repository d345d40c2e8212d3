#pragma once

#include "ux/ux_named_enum.h"

/** How the values of one group of a waterfall chart are sorted. */
UX_NAMED_ENUM(KXWaterfallChartGroupValueSortOrder, None, IncreaseToDecrease, DecreaseToIncrease, )
