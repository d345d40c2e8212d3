#include "kx_axis_chart_edge_tab.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <algorithm>

namespace {

// In logical units: towards the edge and along it
constexpr int thickness = 14, length = 24, edgeGap = 2;
constexpr double cornerRadius = 4, arrowReach = 2.5, arrowHalf = 5, arrowWidth = 1.5;
// It stands over bars of any colour and over the ground alike.
constexpr UXColor tabColor(64, 64, 64, 0.85);
constexpr UXColor arrowColor(255, 255, 255);

} // namespace

KXAxisChartEdgeTab KXAxisChartEdgeTab::make(const UXRect& area, const UXPoint& point, bool alongX)
{
    const bool before = alongX ? point.x < area.x : point.y < area.y;
    const bool after = alongX ? point.x >= uxMaxX(area) : point.y >= area.getBottom();
    if (uxIsEmptyRect(area) || (!before && !after))
        return {};
    KXAxisChartEdgeTab tab;
    if (alongX) {
        tab.side = before ? UXPosition::Left : UXPosition::Right;
        tab.rect = {before ? area.x + edgeGap : uxMaxX(area) - edgeGap - thickness,
                    area.y + std::max(area.height - length, 0) / 2, thickness, std::min(length, area.height)};
    } else {
        tab.side = before ? UXPosition::Top : UXPosition::Bottom;
        tab.rect = {area.x + std::max(area.width - length, 0) / 2,
                    before ? area.y + edgeGap : area.getBottom() - edgeGap - thickness,
                    std::min(length, area.width), thickness};
    }
    return tab;
}

void KXAxisChartEdgeTab::paint(UXPainter& painter) const
{
    if (uxIsEmptyRect(rect))
        return;
    const UXDoubleRect bounds(rect);
    painter.setColor(tabColor);
    uxAddRoundRectanglePath(painter, bounds, cornerRadius);
    painter.fill();

    // An arrow head whose tip is towards the edge: its three corners, across from it and along it.
    const bool alongX = side == UXPosition::Left || side == UXPosition::Right;
    const double tip = side == UXPosition::Left || side == UXPosition::Top ? -arrowReach : arrowReach;
    const UXDoublePoint middle(uxMidDoubleX(bounds), uxMidDoubleY(bounds));
    const auto at = [&](double across, double along) {
        return alongX ? UXDoublePoint(middle.x + across, middle.y + along)
                      : UXDoublePoint(middle.x + along, middle.y + across);
    };
    const UXDoublePoint first = at(-tip, -arrowHalf), second = at(tip, 0), third = at(-tip, arrowHalf);
    painter.setColor(arrowColor);
    painter.setLineWidth(arrowWidth);
    painter.setStartPoint(first.x, first.y);
    painter.addLinePath(second.x, second.y);
    painter.addLinePath(third.x, third.y);
    painter.stroke();
}
