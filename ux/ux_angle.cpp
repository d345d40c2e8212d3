#include "ux/ux_angle.h"

#include <cmath>
#include <numbers>

double uxCosDegrees(double degrees)
{
    if (!std::isfinite(degrees))
        return 0;
    // cos is even and repeats itself, so that the angle can be brought to 0 to 360 without loss.
    const double angle = std::fmod(std::abs(degrees), 360.0);
    if (angle == 90 || angle == 270)
        return 0;
    if (angle == 180)
        return -1;
    return std::cos(angle * std::numbers::pi / 180);
}

double uxSinDegrees(double degrees)
{
    if (!std::isfinite(degrees))
        return 0;
    const double angle = std::fmod(std::abs(degrees), 360.0);
    if (angle == 0 || angle == 180)
        return 0;
    const double sine = angle == 90 ? 1 : angle == 270 ? -1 : std::sin(angle * std::numbers::pi / 180);
    return degrees < 0 ? -sine : sine;
}
