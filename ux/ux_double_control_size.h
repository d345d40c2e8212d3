#pragma once

/** A width and a height between the host control's pixels, a type of its own so that it cannot pass for a diagram's. */
struct UXDoubleControlSize {
    double width = 0, height = 0;

    constexpr UXDoubleControlSize() = default;
    constexpr UXDoubleControlSize(double w, double h) : width(w), height(h) {}

    friend constexpr bool operator==(const UXDoubleControlSize&, const UXDoubleControlSize&) = default;
};
