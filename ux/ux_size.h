#pragma once

/** A width and a height in logical units. */
struct UXSize {
    int width = 0, height = 0;

    constexpr UXSize() = default;
    constexpr UXSize(int w, int h) : width(w), height(h) {}

    friend constexpr bool operator==(const UXSize&, const UXSize&) = default;
};

[[nodiscard]] constexpr UXSize uxMakeSize(int width, int height) { return {width, height}; }
