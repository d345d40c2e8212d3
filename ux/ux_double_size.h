#pragma once

#include "ux/ux_size.h"

/** A width and a height between the whole logical units. */
struct UXDoubleSize {
    double width = 0, height = 0;

    constexpr UXDoubleSize() = default;
    constexpr UXDoubleSize(double w, double h) : width(w), height(h) {}
    constexpr UXDoubleSize(const UXSize& size) : width(size.width), height(size.height) {}

    friend constexpr bool operator==(const UXDoubleSize&, const UXDoubleSize&) = default;
};
