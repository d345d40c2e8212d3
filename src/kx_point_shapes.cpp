#include "kx_point_shapes.h"

#include "ux/ux_painter.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace {

/** What makes shapes as large as a circle of the same size seems, as a part of that size. */
constexpr double squareHalf = 0.44, diamondHalf = 0.62, triangleRadius = 0.68, crossHalf = 0.42,
                 plusHalf = 0.55;
/** Of the bars of crosses. */
constexpr double barShare = 0.3;

using Corners = std::vector<UXDoublePoint>;

Corners obtainCorners(KXPointShape shape)
{
    switch (shape) {
    case KXPointShape::Square:
        return {{-squareHalf, -squareHalf},
                {squareHalf, -squareHalf},
                {squareHalf, squareHalf},
                {-squareHalf, squareHalf}};
    case KXPointShape::Diamond:
        return {{0, -diamondHalf}, {diamondHalf, 0}, {0, diamondHalf}, {-diamondHalf, 0}};
    case KXPointShape::Triangle: {
        const double side = triangleRadius * std::numbers::sqrt3 / 2;
        return {{0, -triangleRadius}, {side, triangleRadius / 2}, {-side, triangleRadius / 2}};
    }
    default:
        return {};
    }
}

/** Two bars through the centre. */
void drawBars(UXPainter& painter, std::span<const UXDoublePoint> centres, bool areDiagonal, double size)
{
    const double half = size * (areDiagonal ? crossHalf : plusHalf);
    painter.setLineWidth(size * barShare);
    painter.setLineCap(UXLineCapStyle::Butt);
    for (const UXDoublePoint& at : centres) {
        const double skew = areDiagonal ? half : 0;
        painter.addLinePath(at.x - half, at.y - skew, at.x + half, at.y + skew);
        painter.addLinePath(at.x - skew, at.y + half, at.x + skew, at.y - half);
    }
    painter.stroke();
}

} // namespace

void kxDrawPoints(UXPainter& painter, KXPointShape shape, std::span<const UXDoublePoint> centres, double size)
{
    if (centres.empty() || !(size > 0))
        return;
    if (shape == KXPointShape::Circle) {
        painter.drawMarks(centres, size / 2);
        return;
    }
    if (shape == KXPointShape::Cross || shape == KXPointShape::Plus) {
        drawBars(painter, centres, shape == KXPointShape::Cross, size);
        return;
    }
    const Corners corners = obtainCorners(shape);
    for (const UXDoublePoint& at : centres) {
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const double x = at.x + size * corners[i].x, y = at.y + size * corners[i].y;
            if (i == 0)
                painter.setStartPoint(x, y);
            else
                painter.addLinePath(x, y);
        }
        painter.closePath();
    }
    painter.fill();
}
