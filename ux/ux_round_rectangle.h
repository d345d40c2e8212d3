#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"

class UXPainter;

/** Adds a rectangle with round corners to the painter's path.
 *  @param radius of the corners, logical units; at most half of the shorter side, below 0 as 0; an
 *  empty rectangle adds nothing */
UX_EXPORT void uxAddRoundRectanglePath(UXPainter& painter, const UXDoubleRect& rect, double radius);
