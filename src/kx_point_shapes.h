#pragma once

#include "kx_export.h"
#include "kx_line_chart_options.h"
#include "ux/ux_double_point.h"

#include <span>

class UXPainter;

/** Draws a point of that shape about each centre with the source of the painter.
 *  @param size its width in logical units; shapes of the same size look equally large */
KX_EXPORT void kxDrawPoints(UXPainter& painter, KXPointShape shape, std::span<const UXDoublePoint> centres,
                            double size);
