#pragma once

#include "kx_named_enum.h"

/** What the stacked bars of a tornado chart compare. */
KX_NAMED_ENUM(KXTornadoChartStackStyle, StackedBar, Difference)
