#pragma once

#include "ux/ux_point.h"
#include "ux/ux_saturate.h"

#include <compare>
#include <cstdint>

/** An upright rectangle in logical units, y down. It holds its left and top edges, not the others. */
struct UXRect {
    int x = 0, y = 0, width = 0, height = 0;

    constexpr UXRect() = default;
    constexpr UXRect(int left, int top, int w, int h) : x(left), y(top), width(w), height(h) {}

    /** @return y + height, at int's limit where the sum does not fit */
    constexpr int getBottom() const { return uxSaturateToInt(std::int64_t{y} + height); }

    /** Moves the bottom edge alone: the height changes, the top stays. */
    constexpr void setBottom(int bottom) { height = uxSaturateToInt(std::int64_t{bottom} - y); }

    /** @return x + width and y + height, each at int's limit where the sum does not fit */
    constexpr UXPoint getBottomRight() const
    {
        return {uxSaturateToInt(std::int64_t{x} + width), getBottom()};
    }

    /** Moves the right and the bottom edge alone: the size changes, the origin stays. */
    constexpr void setBottomRight(const UXPoint& corner)
    {
        width = uxSaturateToInt(std::int64_t{corner.x} - x);
        setBottom(corner.y);
    }

    /** A strict order, field by field, so that a rectangle can key a sorted container. */
    friend constexpr auto operator<=>(const UXRect&, const UXRect&) = default;
};

[[nodiscard]] constexpr UXRect uxMakeRect(int x, int y, int width, int height)
{
    return {x, y, width, height};
}
