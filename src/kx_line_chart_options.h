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

/** How a line runs from one of its points to the next. A smooth one never goes beyond its points; a step is
 * taken at the earlier point, halfway, or at the later one. */
UX_NAMED_ENUM(KXLineCurve, Straight, Smooth, StepBefore, StepMiddle, StepAfter)

/** What a line does where there is no value: it ends and begins anew, goes straight on to the next value, or
 * runs through zero. */
UX_NAMED_ENUM(KXLineNullHandling, Gap, Connect, Zero)

/** Which points of a line are drawn: all where they are few, and those without neighbours; all; none. */
UX_NAMED_ENUM(KXLinePointDisplay, Auto, Always, Never)

/** What a point of a chart looks like. */
UX_NAMED_ENUM(KXPointShape, Circle, Square, Diamond, Triangle, Cross, Plus)
