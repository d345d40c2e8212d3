#pragma once

/** The room that an object keeps free inside its edges, in logical units. */
struct UXPadding {
    int left = 0, top = 0, right = 0, bottom = 0;

    constexpr UXPadding() = default;
    constexpr UXPadding(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}

    friend constexpr bool operator==(const UXPadding&, const UXPadding&) = default;
};
