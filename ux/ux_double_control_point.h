#pragma once

/** A point between the host control's pixels, a type of its own so that it cannot pass for a diagram's. */
struct UXDoubleControlPoint {
    double x = 0, y = 0;

    constexpr UXDoubleControlPoint() = default;
    constexpr UXDoubleControlPoint(double pointX, double pointY) : x(pointX), y(pointY) {}

    friend constexpr bool operator==(const UXDoubleControlPoint&, const UXDoubleControlPoint&) = default;
};
