#pragma once

#include "kx_named_enum.h"

/** How the values of one group of a waterfall chart are sorted. */
KX_NAMED_ENUM(KXWaterfallChartGroupValueSortOrder, None, IncreaseToDecrease, DecreaseToIncrease, )
