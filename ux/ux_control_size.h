#pragma once

/** A width and a height in the host control's pixels, a type of its own so that it cannot pass for a diagram's. */
struct UXControlSize {
    int width = 0, height = 0;

    constexpr UXControlSize() = default;
    constexpr UXControlSize(int w, int h) : width(w), height(h) {}

    friend constexpr bool operator==(const UXControlSize&, const UXControlSize&) = default;
};
