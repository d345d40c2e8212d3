#pragma once

/** A width and a height between the host control's pixels that cannot pass for one of a diagram. */
struct UXDoubleControlSize {
    double width = 0, height = 0;

    constexpr UXDoubleControlSize() = default;
    constexpr UXDoubleControlSize(double w, double h) : width(w), height(h) {}

    friend constexpr bool operator==(const UXDoubleControlSize&, const UXDoubleControlSize&) = default;
};
