#include "ux/ux_symbol_shape.h"

#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double lineWidth = 2;      // logical units, as a chart's line is drawn
constexpr double assistantWidth = 1; // thinner than data
constexpr double lineTolerance = 3;  // to either side of a line's middle
constexpr double areaAlpha = 0.4;    // of the colour's own

struct Middle {
    explicit Middle(const UXDoubleRect& bounds)
        : x(bounds.x + bounds.width / 2), y(bounds.y + bounds.height / 2),
          radius(std::min(bounds.width, bounds.height) / 2)
    {
    }
    double x, y, radius;
};

void fillCircle(UXPainter& painter, double x, double y, double radius)
{
    painter.addCircleArcPath(x, y, radius, 0, 360);
    painter.closePath();
    painter.fill();
}

void strokeAcross(UXPainter& painter, const UXDoubleRect& bounds, double y, double width)
{
    painter.setLineWidth(width);
    painter.addLinePath(bounds.x, y, bounds.x + bounds.width, y);
    painter.stroke();
}

/** The end of the symbol at which a series names the value axis that it belongs to, left or right. */
enum class MarkedEnd { None, Left, Right };

void drawEndMark(UXPainter& painter, const UXDoubleRect& bounds, double y, MarkedEnd end)
{
    if (end == MarkedEnd::None)
        return;
    const double radius = std::min(Middle(bounds).radius, 1.5 * lineWidth);
    fillCircle(painter, end == MarkedEnd::Left ? bounds.x + radius : bounds.x + bounds.width - radius, y,
               radius);
}

void drawLine(UXPainter& painter, const UXDoubleRect& bounds, MarkedEnd end)
{
    const double y = Middle(bounds).y;
    strokeAcross(painter, bounds, y, std::min(lineWidth, bounds.height));
    drawEndMark(painter, bounds, y, end);
}

void drawArea(UXPainter& painter, const UXDoubleRect& bounds, const UXColor& color, MarkedEnd end)
{
    const double width = std::min(lineWidth, bounds.height);
    UXColor translucent = color;
    translucent.alpha *= areaAlpha;
    painter.setColor(translucent);
    painter.addRectanglePath(bounds);
    painter.fill();
    painter.setColor(color);
    strokeAcross(painter, bounds, bounds.y + width / 2, width);
    drawEndMark(painter, bounds, bounds.y + bounds.height / 2, end);
}

void drawDots(UXPainter& painter, const UXDoubleRect& bounds)
{
    const double radius = std::min(bounds.width / 2, bounds.height / 8);
    for (const double share : {1.0 / 8, 1.0 / 2, 7.0 / 8})
        fillCircle(painter, bounds.x + bounds.width / 2, bounds.y + share * bounds.height, radius);
}

void drawAssistantLine(UXPainter& painter, const UXDoubleRect& bounds, UXLineDashStyle dash)
{
    const UXPainterState state(painter);
    painter.setLineDash(dash);
    strokeAcross(painter, bounds, Middle(bounds).y, std::min(assistantWidth, bounds.height));
}

} // namespace

void uxDrawSymbol(UXPainter& painter, UXSymbolStyle style, const UXDoubleRect& bounds, const UXColor& color)
{
    if (!uxIsFiniteDoubleRect(bounds) || bounds.width <= 0 || bounds.height <= 0)
        return;
    painter.setColor(color);
    switch (style) {
    case UXSymbolStyle::Rectangle:
        painter.addRectanglePath(bounds);
        painter.fill();
        break;
    case UXSymbolStyle::Circle:
        fillCircle(painter, Middle(bounds).x, Middle(bounds).y, Middle(bounds).radius);
        break;
    case UXSymbolStyle::Line:
        drawLine(painter, bounds, MarkedEnd::None);
        break;
    case UXSymbolStyle::LineLeft:
        drawLine(painter, bounds, MarkedEnd::Left);
        break;
    case UXSymbolStyle::LineRight:
        drawLine(painter, bounds, MarkedEnd::Right);
        break;
    case UXSymbolStyle::Area:
        drawArea(painter, bounds, color, MarkedEnd::None);
        break;
    case UXSymbolStyle::AreaLeft:
        drawArea(painter, bounds, color, MarkedEnd::Left);
        break;
    case UXSymbolStyle::AreaRight:
        drawArea(painter, bounds, color, MarkedEnd::Right);
        break;
    case UXSymbolStyle::ThreeVerticalDots:
        drawDots(painter, bounds);
        break;
    case UXSymbolStyle::AssistantLine:
        drawAssistantLine(painter, bounds, UXLineDashStyle::None);
        break;
    case UXSymbolStyle::AssistantLineWithDash:
        drawAssistantLine(painter, bounds, UXLineDashStyle::Dash);
        break;
    case UXSymbolStyle::AssistantLineWithDot:
        drawAssistantLine(painter, bounds, UXLineDashStyle::Dot);
        break;
    }
}

bool uxPointInSymbol(UXSymbolStyle style, const UXDoubleRect& bounds, const UXDoublePoint& point)
{
    if (!uxIsFiniteDoubleRect(bounds) || !uxPointInDoubleRect(point, bounds))
        return false;
    const Middle middle(bounds);
    switch (style) {
    case UXSymbolStyle::Circle:
        return std::hypot(point.x - middle.x, point.y - middle.y) <= middle.radius;
    case UXSymbolStyle::Line:
    case UXSymbolStyle::LineLeft:
    case UXSymbolStyle::LineRight:
    case UXSymbolStyle::AssistantLine:
    case UXSymbolStyle::AssistantLineWithDash:
    case UXSymbolStyle::AssistantLineWithDot:
        return std::abs(point.y - middle.y) <= lineTolerance;
    case UXSymbolStyle::Rectangle:
    case UXSymbolStyle::Area:
    case UXSymbolStyle::AreaLeft:
    case UXSymbolStyle::AreaRight:
    case UXSymbolStyle::ThreeVerticalDots:
        break;
    }
    return true;
}
