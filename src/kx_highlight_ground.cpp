#include "kx_highlight_ground.h"

#include "ux/ux_color.h"
#include "ux/ux_painter.h"
#include "ux/ux_round_rectangle.h"

namespace {

constexpr double cornerRadius = 4; // logical units
constexpr double opacity = 0.12;

} // namespace

void kxDrawHighlightGround(UXPainter& painter, const UXDoubleRect& rect, const UXColor& textColor)
{
    UXColor color = textColor;
    color.alpha *= opacity;
    painter.setColor(color);
    uxAddRoundRectanglePath(painter, rect, cornerRadius);
    painter.fill();
}
