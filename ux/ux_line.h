#pragma once

#include "ux/ux_point.h"

#include <compare>

/** The straight piece between two points. */
struct UXLine {
    UXPoint start, end;

    constexpr UXLine() = default;
    constexpr UXLine(const UXPoint& from, const UXPoint& to) : start(from), end(to) {}

    /** A strict order, start before end, so that a line can key a sorted container. */
    friend constexpr auto operator<=>(const UXLine&, const UXLine&) = default;
};
