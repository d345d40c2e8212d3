#pragma once

/** An upright rectangle in the host control's pixels that cannot pass for one of a diagram. */
struct UXControlRect {
    int x = 0, y = 0, width = 0, height = 0;

    constexpr UXControlRect() = default;
    constexpr UXControlRect(int left, int top, int w, int h) : x(left), y(top), width(w), height(h) {}

    friend constexpr bool operator==(const UXControlRect&, const UXControlRect&) = default;
};
