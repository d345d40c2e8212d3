#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"

/** Which part of a circle pies fill, and which way around. */
struct KX_EXPORT KXPieTurn {
    double startDegrees = -90; /**< the painter's angle; finite */
    double sweepDegrees = 360;
    bool isClockwise = true;

    /** @return the sweep, 0 to 360; all around where it is not a number */
    double obtainSweep() const;
    /** @return what the part of a circle of that radius about (0, 0) takes, its centre included */
    UXDoubleRect obtainBounds(double radius) const;
};
