#include "ux/ux_color_contrast.h"

#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int stepCount = 20;

double obtainLuminance(const UXColor& color)
{
    const auto linear = [](int part) {
        const double share = std::clamp(part, 0, 255) / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

/** @return the opaque colour at share of the way from one to the other */
UXColor mix(const UXColor& from, const UXColor& to, double share)
{
    const auto between = [share](int a, int b) { return uxRoundToInt(a + (double{1} * b - a) * share); };
    return {between(from.red, to.red), between(from.green, to.green), between(from.blue, to.blue)};
}

} // namespace

UXColor uxLayColorOver(const UXColor& color, const UXColor& ground)
{
    return mix(ground, color, std::isnan(color.alpha) ? 1 : std::clamp(color.alpha, 0.0, 1.0));
}

double uxObtainContrast(const UXColor& color, const UXColor& ground)
{
    const double a = obtainLuminance(uxLayColorOver(color, ground)), b = obtainLuminance(ground);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

UXColor uxMakeReadableColor(const UXColor& color, const UXColor& ground)
{
    if (uxObtainContrast(color, ground) >= uxReadableContrast)
        return color;
    const UXColor black(0, 0, 0), white(255, 255, 255);
    const bool darker = uxObtainContrast(black, ground) >= uxObtainContrast(white, ground);
    const UXColor seen = uxLayColorOver(color, ground), end = darker ? black : white;
    UXColor readable = end;
    for (int step = stepCount - 1; step > 0; --step) {
        const UXColor tried = mix(seen, end, static_cast<double>(step) / stepCount);
        if (uxObtainContrast(tried, ground) < uxReadableContrast)
            break;
        readable = tried;
    }
    return readable;
}
