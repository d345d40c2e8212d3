#pragma once

#include "ux/ux_rect.h"

/** An upright rectangle between the whole logical units, y down, half open like UXRect. */
struct UXDoubleRect {
    double x = 0, y = 0, width = 0, height = 0;

    constexpr UXDoubleRect() = default;
    constexpr UXDoubleRect(double left, double top, double w, double h) : x(left), y(top), width(w), height(h)
    {
    }
    constexpr UXDoubleRect(const UXRect& rect) : x(rect.x), y(rect.y), width(rect.width), height(rect.height)
    {
    }

    friend constexpr bool operator==(const UXDoubleRect&, const UXDoubleRect&) = default;
};

[[nodiscard]] constexpr UXDoubleRect uxMakeDoubleRect(double x, double y, double width, double height)
{
    return {x, y, width, height};
}
