#pragma once

#include "kx_export.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"

class UXPainter;

/** A tab at an edge of the marks' area that points to what is scrolled out of sight behind that edge. */
struct KX_EXPORT KXAxisChartEdgeTab {
    UXRect rect; // empty: there is nothing to point to
    UXPosition side = UXPosition::Right;

    /** @param area of the marks @param point what to point to, in the same space
     *  @param alongX whether the area scrolls along x; it scrolls along y otherwise */
    static KXAxisChartEdgeTab make(const UXRect& area, const UXPoint& point, bool alongX);
    /** Draws in the space that it was made in. */
    void paint(UXPainter& painter) const;

    friend bool operator==(const KXAxisChartEdgeTab&, const KXAxisChartEdgeTab&) = default;
};
