#pragma once

#include "ux/ux_named_enum.h"

/** How a line of a chart is dashed. */
UX_NAMED_ENUM(KXChartLineStyle, None, Dot, Dash)

/** How a line of a chart ends. */
UX_NAMED_ENUM(KXChartLineCapStyle, Butt, Round, Square)

/** How two pieces of a line of a chart meet. */
UX_NAMED_ENUM(KXChartLineJoinStyle, Miter, Round, Bevel)

/** The side of a line's point on which its label stands. */
UX_NAMED_ENUM(KXLineLabelPosition, Left, Right, Top, Bottom)
