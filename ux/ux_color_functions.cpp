#include "ux/ux_color_functions.h"

#include <algorithm>
#include <cmath>

namespace {

/** The parts that both models share, each channel from 0 to 1. */
struct Extremes {
    double hue, highest, lowest;
};

Extremes obtainExtremes(const UXColor& color)
{
    const auto share = [](int channel) { return std::clamp(channel, 0, 255) / 255.0; };
    const double red = share(color.red), green = share(color.green), blue = share(color.blue);
    const double highest = std::max({red, green, blue}), lowest = std::min({red, green, blue});
    const double span = highest - lowest;
    if (span == 0)
        return {0, highest, lowest};
    const double sixths = highest == red     ? (green - blue) / span
                          : highest == green ? (blue - red) / span + 2
                                             : (red - green) / span + 4;
    return {sixths < 0 ? (sixths + 6) * 60 : sixths * 60, highest, lowest};
}

double share(double part) { return std::isnan(part) ? 0 : std::clamp(part, 0.0, 1.0); }

/** @return hue as sixths of the circle, 0 to below 6 */
double sixthsOfCircle(double hue)
{
    if (!std::isfinite(hue))
        return 0;
    const double turned = std::fmod(hue, 360.0);
    return (turned < 0 ? turned + 360.0 : turned) / 60;
}

/** Mixes each channel between lowest and highest by its distance from the hue: whole within one sixth of the
 * circle, nothing beyond two, linear in between. */
UXColor colorBetween(double hue, double lowest, double highest)
{
    const auto channel = [&](double ownSixths) {
        const double apart = std::abs(sixthsOfCircle(hue) - ownSixths);
        const double weight = std::clamp(2 - std::min(apart, 6 - apart), 0.0, 1.0);
        return static_cast<int>(std::lround((lowest + (highest - lowest) * weight) * 255));
    };
    return {channel(0), channel(2), channel(4)};
}

} // namespace

UXColor uxHSLToColor(double hue, double saturation, double lightness)
{
    const double middle = share(lightness);
    const double reach = share(saturation) * std::min(middle, 1 - middle);
    return colorBetween(hue, middle - reach, middle + reach);
}

void uxColorToHSL(const UXColor& color, double& hue, double& saturation, double& lightness)
{
    const Extremes found = obtainExtremes(color);
    const double middle = (found.highest + found.lowest) / 2;
    const double reach = std::min(middle, 1 - middle);
    hue = found.hue;
    saturation = reach > 0 ? std::min((found.highest - found.lowest) / 2 / reach, 1.0) : 0;
    lightness = middle;
}

UXColor uxHSVToColor(double hue, double saturation, double value)
{
    const double highest = share(value);
    return colorBetween(hue, highest * (1 - share(saturation)), highest);
}

void uxColorToHSV(const UXColor& color, double& hue, double& saturation, double& value)
{
    const Extremes found = obtainExtremes(color);
    hue = found.hue;
    saturation = found.highest > 0 ? (found.highest - found.lowest) / found.highest : 0;
    value = found.highest;
}
