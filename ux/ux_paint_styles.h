#pragma once

#include "ux/ux_named_enum.h"

/** Which points a path encloses: those it winds around, or those it encloses an odd number of times. */
UX_NAMED_ENUM(UXFillRule, Winding, EvenOdd)

/** Whether edges are smoothed; without, a pixel is either covered or not. */
UX_NAMED_ENUM(UXAntialiasStyle, Default, None)

/** How what is drawn meets what is there: the operators of Porter and Duff, then separable blends. */
UX_NAMED_ENUM(UXCompositionMode, Over, Clear, Source, In, Out, Atop, Destination, DestinationOver,
              DestinationIn, DestinationOut, DestinationAtop, Xor, Add, Multiply, Screen, Overlay, Darken,
              Lighten)

/** How two pieces of a line meet. */
UX_NAMED_ENUM(UXLineJoinStyle, Miter, Round, Bevel)

/** How a line ends. */
UX_NAMED_ENUM(UXLineCapStyle, Butt, Round, Square)

/** How a line is dashed; None draws it whole. */
UX_NAMED_ENUM(UXLineDashStyle, None, Dot, Dash, DashDot)

/** What a gradient paints beyond its two ends: the colour of the nearer end, nothing, or itself again. */
UX_NAMED_ENUM(UXSourceOperator, Pad, None, Repeat, Reflect)
