#include "ux/ux_round_rectangle.h"

#include "ux/ux_painter.h"

#include <algorithm>

void uxAddRoundRectanglePath(UXPainter& painter, const UXDoubleRect& rect, double radius)
{
    if (!(rect.width > 0 && rect.height > 0))
        return;
    const double r = std::min({radius, rect.width / 2, rect.height / 2});
    if (!(r > 0)) {
        painter.addRectanglePath(rect);
        return;
    }
    const double left = rect.x + r, right = rect.x + rect.width - r;
    const double top = rect.y + r, bottom = rect.y + rect.height - r;
    painter.setStartPoint(left, rect.y);
    painter.joinCircleArcPath(right, top, r, 270, 360);
    painter.joinCircleArcPath(right, bottom, r, 0, 90);
    painter.joinCircleArcPath(left, bottom, r, 90, 180);
    painter.joinCircleArcPath(left, top, r, 180, 270);
    painter.closePath();
}
