#pragma once

/** A point in the host control's pixels, a type of its own so that it cannot pass for a diagram's. */
struct UXControlPoint {
    int x = 0, y = 0;

    constexpr UXControlPoint() = default;
    constexpr UXControlPoint(int pointX, int pointY) : x(pointX), y(pointY) {}

    friend constexpr bool operator==(const UXControlPoint&, const UXControlPoint&) = default;
};
