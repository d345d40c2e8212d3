#include "ux/ux_color_vision.h"

#include "ux/ux_saturate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {

using Triple = std::array<double, 3>;
using Matrix = std::array<Triple, 3>;

constexpr Matrix matrices[] = {
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}},
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}},
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};
/** Linear sRGB to XYZ (IEC 61966-2-1). */
constexpr Matrix toXYZ{{{0.4124564, 0.3575761, 0.1804375},
                        {0.2126729, 0.7151522, 0.0721750},
                        {0.0193339, 0.1191920, 0.9503041}}};
constexpr Triple whiteD65{0.95047, 1.0, 1.08883};

Triple multiply(const Matrix& matrix, const Triple& of)
{
    Triple product{};
    for (std::size_t row = 0; row < product.size(); ++row)
        product[row] = matrix[row][0] * of[0] + matrix[row][1] * of[1] + matrix[row][2] * of[2];
    return product;
}

double linearize(int part)
{
    const double share = std::clamp(part, 0, 255) / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

int encode(double light)
{
    const double clamped = std::clamp(light, 0.0, 1.0);
    const double share = clamped <= 0.0031308 ? 12.92 * clamped : 1.055 * std::pow(clamped, 1 / 2.4) - 0.055;
    return uxRoundToInt(255 * share);
}

Triple obtainLight(const UXColor& color)
{
    return {linearize(color.red), linearize(color.green), linearize(color.blue)};
}

double toRadians(double degrees) { return degrees * std::numbers::pi / 180; }

/** @return the hue of a colour in degrees from 0 to below 360, 0 for grey */
double obtainHue(double a, double b)
{
    const double hue = a == 0 && b == 0 ? 0 : std::atan2(b, a) * 180 / std::numbers::pi;
    return hue < 0 ? hue + 360 : hue;
}

/** What the formula makes of the hues of two colours; chromas as it scales them. */
struct HuePair {
    HuePair(double hue, double other, bool isGrey)
    {
        const double gap = other - hue, sum = hue + other;
        const bool isFar = std::abs(gap) > 180;
        mean = sum / 2;
        if (isGrey) {
            mean = sum;
            return;
        }
        difference = !isFar ? gap : gap > 0 ? gap - 360 : gap + 360;
        if (isFar)
            mean = sum < 360 ? (sum + 360) / 2 : (sum - 360) / 2;
    }

    double difference = 0, mean = 0;
};

double obtainSeventhPowerShare(double chroma)
{
    const double power = std::pow(chroma, 7);
    return std::sqrt(power / (power + std::pow(25.0, 7)));
}

} // namespace

UXColor uxObtainSeenColor(const UXColor& color, UXColorVision vision)
{
    if (vision == UXColorVision::Normal)
        return color;
    const Triple seen = multiply(matrices[static_cast<int>(vision) - 1], obtainLight(color));
    return {encode(seen[0]), encode(seen[1]), encode(seen[2])};
}

UXLabColor uxColorToLab(const UXColor& color)
{
    Triple xyz = multiply(toXYZ, obtainLight(color));
    for (std::size_t i = 0; i < xyz.size(); ++i) {
        const double share = xyz[i] / whiteD65[i];
        xyz[i] = share > 216.0 / 24389 ? std::cbrt(share) : (24389.0 / 27 * share + 16) / 116;
    }
    return {116 * xyz[1] - 16, 500 * (xyz[0] - xyz[1]), 200 * (xyz[1] - xyz[2])};
}

double uxObtainColorDifference(const UXLabColor& color, const UXLabColor& other)
{
    // 1. Chromas, with a stretched for colours near grey
    const double meanPlain = (std::hypot(color.a, color.b) + std::hypot(other.a, other.b)) / 2;
    const double stretch = 1 + 0.5 * (1 - obtainSeventhPowerShare(meanPlain));
    const double a = stretch * color.a, otherA = stretch * other.a;
    const double chroma = std::hypot(a, color.b), otherChroma = std::hypot(otherA, other.b);
    const HuePair hues(obtainHue(a, color.b), obtainHue(otherA, other.b), chroma * otherChroma == 0);

    // 2. Differences
    const double lightnessGap = other.lightness - color.lightness, chromaGap = otherChroma - chroma;
    const double hueGap = 2 * std::sqrt(chroma * otherChroma) * std::sin(toRadians(hues.difference) / 2);

    // 3. Their weights
    const double offset = std::pow((color.lightness + other.lightness) / 2 - 50, 2);
    const double meanChroma = (chroma + otherChroma) / 2;
    const double hueWeight = 1 - 0.17 * std::cos(toRadians(hues.mean - 30)) +
                             0.24 * std::cos(toRadians(2 * hues.mean)) +
                             0.32 * std::cos(toRadians(3 * hues.mean + 6)) -
                             0.20 * std::cos(toRadians(4 * hues.mean - 63));
    const double lightness = lightnessGap / (1 + 0.015 * offset / std::sqrt(20 + offset));
    const double ofChroma = chromaGap / (1 + 0.045 * meanChroma);
    const double ofHue = hueGap / (1 + 0.015 * meanChroma * hueWeight);
    const double turn = 30 * std::exp(-std::pow((hues.mean - 275) / 25, 2));
    const double rotation = -2 * obtainSeventhPowerShare(meanChroma) * std::sin(toRadians(2 * turn));
    return std::sqrt((std::max)(
        lightness * lightness + ofChroma * ofChroma + ofHue * ofHue + rotation * ofChroma * ofHue, 0.0));
}

double uxObtainColorDifference(const UXColor& color, const UXColor& other, UXColorVision vision)
{
    return uxObtainColorDifference(uxColorToLab(uxObtainSeenColor(color, vision)),
                                   uxColorToLab(uxObtainSeenColor(other, vision)));
}
