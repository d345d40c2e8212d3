#pragma once

#include "ux/ux_double_control_point.h"
#include "ux/ux_double_point.h"

/** How a diagram lies in a control at the moment when the map was taken: its (0, 0) at origin, one of its
 * units zoomRatio of the control's pixels long. */
struct UXCoordinateMap {
    UXDoubleControlPoint origin;
    double zoomRatio = 1;

    constexpr UXDoubleControlPoint toControlSpace(const UXDoublePoint& point) const
    {
        return {origin.x + point.x * zoomRatio, origin.y + point.y * zoomRatio};
    }
    constexpr UXDoublePoint toDiagramSpace(const UXDoubleControlPoint& point) const
    {
        return {(point.x - origin.x) / zoomRatio, (point.y - origin.y) / zoomRatio};
    }
};
