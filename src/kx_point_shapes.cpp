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

/** @return two bars that cross at the centre
 *  @param half of their length */
Corners obtainBars(double half)
{
    constexpr double side = barShare / 2;
    return {{-half, -side}, {-side, -side}, {-side, -half}, {side, -half}, {side, -side}, {half, -side},
            {half, side},   {side, side},   {side, half},   {-side, half}, {-side, side}, {-half, side}};
}

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
    case KXPointShape::Plus:
        return obtainBars(plusHalf);
    case KXPointShape::Cross: {
        // The same, turned by an eighth.
        constexpr double half = std::numbers::sqrt2 / 2;
        Corners corners = obtainBars(crossHalf * std::numbers::sqrt2);
        for (UXDoublePoint& corner : corners)
            corner = {(corner.x - corner.y) * half, (corner.x + corner.y) * half};
        return corners;
    }
    case KXPointShape::Circle:
        break;
    }
    return {};
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
    Corners corners = obtainCorners(shape);
    for (UXDoublePoint& corner : corners)
        corner = {size * corner.x, size * corner.y};
    painter.drawShapes(centres, corners);
}
