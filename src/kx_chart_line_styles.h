#pragma once

#include "kx_named_enum.h"

/** How a line of a chart is dashed. */
KX_NAMED_ENUM(KXChartLineStyle, None, Dot, Dash)

/** How a line of a chart ends. */
KX_NAMED_ENUM(KXChartLineCapStyle, Butt, Round, Square)

/** How two pieces of a line of a chart meet. */
KX_NAMED_ENUM(KXChartLineJoinStyle, Miter, Round, Bevel)
