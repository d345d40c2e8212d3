#pragma once

#include "ux/ux_named_enum.h"

/** What the stacked bars of a tornado chart compare. */
UX_NAMED_ENUM(KXTornadoChartStackStyle, StackedBar, Difference)
