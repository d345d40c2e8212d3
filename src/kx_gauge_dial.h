#pragma once

#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"

class UXPainter;

/** The half circle of a gauge: a pipe between two radii. Angles are degrees of the dial: 0 at its left end,
 * 90 at its top, 180 at its right end. */
struct KXGaugeDial {
    /** From its left end to its right one. */
    static constexpr double sweepDegrees = 180;

    UXDoublePoint center;
    double radius = 0;
    double innerRadius = 0;

    /** @param rect the dial stands on its bottom edge and is as wide as it
     *  @param pipeShare the pipe's thickness as a share of the radius */
    static KXGaugeDial fromRect(const UXDoubleRect& rect, double pipeShare);

    /** @return where the dial is when its radius is that of the pipe's outside */
    UXDoubleRect obtainRect() const;
    /** @return how far outside of the pipe the target's tick ends */
    double obtainTickEnd() const;
    /** @return how far outside of the pipe a text keeps clear of the tick */
    double obtainTickClearance() const;
    UXDoubleRect obtainTickBounds(double degrees) const;
    double obtainHubRadius() const;

    /** @return a rectangle of the given size beside the pipe, in the direction of an angle, whose nearest
     * point is distance away from the pipe; it never reaches below the dial */
    UXDoubleRect placeOutside(const UXDoubleSize& size, double degrees, double distance) const;
    /** @return whether rect lies in the hole of the pipe with some room to spare */
    bool holdsInside(const UXDoubleRect& rect) const;
    bool holdsPoint(const UXDoublePoint& point) const;

    // A width ratio of 1 is the usual width
    /** Fills the part of the pipe between two angles with the painter's source. */
    void fillSegment(UXPainter& painter, double fromDegrees, double toDegrees, double widthRatio = 1) const;
    void strokeTick(UXPainter& painter, double degrees, double widthRatio) const;
    void fillHub(UXPainter& painter) const;
    void strokeNeedle(UXPainter& painter, double degrees, double widthRatio) const;
};
