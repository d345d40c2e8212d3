#pragma once

/** A width and a height in the host control's pixels that cannot pass for one of a diagram. */
struct UXControlSize {
    int width = 0, height = 0;

    constexpr UXControlSize() = default;
    constexpr UXControlSize(int w, int h) : width(w), height(h) {}

    friend constexpr bool operator==(const UXControlSize&, const UXControlSize&) = default;
};
