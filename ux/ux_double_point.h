#pragma once

#include "ux/ux_point.h"

/** A point between the whole logical units, y down. */
struct UXDoublePoint {
    double x = 0, y = 0;

    constexpr UXDoublePoint() = default;
    constexpr UXDoublePoint(double pointX, double pointY) : x(pointX), y(pointY) {}
    constexpr UXDoublePoint(const UXPoint& point) : x(point.x), y(point.y) {}

    friend constexpr UXDoublePoint operator+(const UXDoublePoint& a, const UXDoublePoint& b)
    {
        return {a.x + b.x, a.y + b.y};
    }

    friend constexpr bool operator==(const UXDoublePoint&, const UXDoublePoint&) = default;
};

[[nodiscard]] constexpr UXDoublePoint uxMakeDoublePoint(double x, double y) { return {x, y}; }
