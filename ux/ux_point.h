#pragma once

#include "ux/ux_saturate.h"

#include <compare>
#include <cstdint>

/** A point, or the way from one point to another, in logical units, y down. Sums stop at int's limits. */
struct UXPoint {
    int x = 0, y = 0;

    constexpr UXPoint() = default;
    constexpr UXPoint(int pointX, int pointY) : x(pointX), y(pointY) {}

    constexpr UXPoint& operator+=(const UXPoint& other) { return *this = *this + other; }

    friend constexpr UXPoint operator+(const UXPoint& a, const UXPoint& b)
    {
        return {uxSaturateToInt(std::int64_t{a.x} + b.x), uxSaturateToInt(std::int64_t{a.y} + b.y)};
    }

    friend constexpr UXPoint operator-(const UXPoint& a, const UXPoint& b)
    {
        return {uxSaturateToInt(std::int64_t{a.x} - b.x), uxSaturateToInt(std::int64_t{a.y} - b.y)};
    }

    /** A strict order, x before y, so that a point can key a sorted container. */
    friend constexpr auto operator<=>(const UXPoint&, const UXPoint&) = default;
};

[[nodiscard]] constexpr UXPoint uxMakePoint(int x, int y) { return {x, y}; }
