#pragma once

/** Red, green and blue from 0 to 255, alpha from 0 (clear) to 1. Keeps what it is given; painters clamp. */
struct UXColor {
    int red = 0, green = 0, blue = 0;
    double alpha = 1;

    constexpr UXColor() = default;
    constexpr UXColor(int r, int g, int b, double a = 1) : red(r), green(g), blue(b), alpha(a) {}

    friend constexpr bool operator==(const UXColor&, const UXColor&) = default;
};
