#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"
#include "ux/ux_transform.h"

/**
 * Moves the edges of rect to the nearest edges between device pixels, each edge by itself, so that what
 * touches still does. A rectangle with an area stays at least one pixel wide and high.
 * @param toDevice maps the space of rect to device pixels
 * @return in the space of rect; rect as it is where toDevice turns it, or where no device has pixels: further
 * than 1e9 of them away, not finite
 */
[[nodiscard]] UX_EXPORT UXDoubleRect uxSnapRect(const UXDoubleRect& rect, const UXTransform& toDevice);

/**
 * @param thickness in the space of the line; drawn as a whole number of device pixels, at least one
 * @return the rectangle of whole device pixels that covers the line from (left, y) to (right, y), or from (x,
 * top) to (x, bottom), in the space of the line
 */
[[nodiscard]] UX_EXPORT UXDoubleRect uxSnapHorizontalLine(double y, double left, double right,
                                                          double thickness, const UXTransform& toDevice);
[[nodiscard]] UX_EXPORT UXDoubleRect uxSnapVerticalLine(double x, double top, double bottom, double thickness,
                                                        const UXTransform& toDevice);
