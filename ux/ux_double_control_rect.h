#pragma once

/** An upright rectangle between the host control's pixels that cannot pass for one of a diagram. */
struct UXDoubleControlRect {
    double x = 0, y = 0, width = 0, height = 0;

    constexpr UXDoubleControlRect() = default;
    constexpr UXDoubleControlRect(double left, double top, double w, double h)
        : x(left), y(top), width(w), height(h)
    {
    }

    friend constexpr bool operator==(const UXDoubleControlRect&, const UXDoubleControlRect&) = default;
};
