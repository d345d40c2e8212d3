#include "kx_pie_turn.h"

#include "kx_panel_shape.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double allAround = 360;

} // namespace

double KXPieTurn::obtainSweep() const
{
    return std::isnan(sweepDegrees) ? allAround : std::clamp(sweepDegrees, 0.0, allAround);
}

UXDoubleRect KXPieTurn::obtainBounds(double radius) const
{
    const double sweep = obtainSweep();
    return KXPanelShape(KXSector{{}, 0, radius, isClockwise ? startDegrees : startDegrees - sweep, sweep})
        .getBounds();
}
