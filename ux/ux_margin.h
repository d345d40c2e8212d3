#pragma once

/** The room that an object keeps free outside its edges, in logical units. */
struct UXMargin {
    int left = 0, top = 0, right = 0, bottom = 0;

    constexpr UXMargin() = default;
    constexpr UXMargin(int l, int t, int r, int b) : left(l), top(t), right(r), bottom(b) {}

    friend constexpr bool operator==(const UXMargin&, const UXMargin&) = default;
};
