#pragma once

#include "ux/ux_double_point.h"
#include "ux/ux_export.h"

/** An affine map of the plane: x' = xx x + xy y + dx and y' = yx x + yy y + dy. */
struct UX_EXPORT UXTransform {
    double xx = 1, yx = 0, xy = 0, yy = 1, dx = 0, dy = 0;

    UXDoublePoint apply(double x, double y) const { return {xx * x + xy * y + dx, yx * x + yy * y + dy}; }

    /** @return the map that moves, turns (degrees, clockwise on screen) or scales first and then does as this
     * one */
    [[nodiscard]] UXTransform translated(double x, double y) const;
    [[nodiscard]] UXTransform rotated(double degrees) const;
    [[nodiscard]] UXTransform scaled(double sx, double sy) const;

    /** @return the map that does as inner first and then as this one */
    [[nodiscard]] UXTransform combined(const UXTransform& inner) const;

    /** @return the map back; the identity where there is none, which isInvertible tells */
    [[nodiscard]] UXTransform inverted() const;
    bool isInvertible() const;

    /** @return the map with the same whole places, as those of pixels, that runs to the right where this one
     * runs to the left: for who only wants to know where pixels lie */
    [[nodiscard]] UXTransform unmirrored() const;

    /** Whether upright rectangles stay upright: no turn and no skew. */
    bool isUpright() const { return xy == 0 && yx == 0; }

    friend bool operator==(const UXTransform&, const UXTransform&) = default;
};
