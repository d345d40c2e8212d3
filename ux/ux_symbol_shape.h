#pragma once

#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"
#include "ux/ux_symbol_style.h"

class UXPainter;

/** Draws a symbol into bounds; hints, legends and symbols share it. An empty or non-finite bounds draws
 * nothing. */
UX_EXPORT void uxDrawSymbol(UXPainter& painter, UXSymbolStyle style, const UXDoubleRect& bounds,
                            const UXColor& color);

/** @return whether the symbol that uxDrawSymbol draws covers point, with some tolerance for thin lines */
[[nodiscard]] UX_EXPORT bool uxPointInSymbol(UXSymbolStyle style, const UXDoubleRect& bounds,
                                             const UXDoublePoint& point);
