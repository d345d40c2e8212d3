#include "kx_gradient_scale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double half = 0.5;

/** More classes than there are colours tell nothing. */
constexpr int greatestClassCount = 256;

UXColor mix(const UXColor& from, const UXColor& to, double share)
{
    const auto part = [share](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * share)); };
    return {part(from.red, to.red), part(from.green, to.green), part(from.blue, to.blue),
            from.alpha + (to.alpha - from.alpha) * share};
}

} // namespace

/** @return where value stands in the range, from 0 to 1; halfway where the range is one value */
double KXGradientScale::_obtainShare(double value) const
{
    // Halves, as the whole range may be wider than a double.
    const double span = greatest / 2 - least / 2;
    return span > 0 ? std::clamp((value / 2 - least / 2) / span, 0.0, 1.0) : half;
}

UXColor KXGradientScale::_obtainColorAt(double share) const
{
    const double middle = middleValue > least && middleValue < greatest ? _obtainShare(middleValue) : half;
    if (share < middle)
        return mix(minColor, middleColor, share / middle);
    return mix(middleColor, maxColor, middle < 1 ? (share - middle) / (1 - middle) : 0);
}

UXColor KXGradientScale::obtainColor(double value) const
{
    if (std::isnan(value))
        return {0, 0, 0, 0};
    const double share = _obtainShare(value);
    if (classCount <= 0)
        return _obtainColorAt(share);
    // The first class and the last one have the colours of the ends.
    const int count = std::min(classCount, greatestClassCount);
    const int index = std::min(static_cast<int>(share * count), count - 1);
    return _obtainColorAt(count > 1 ? static_cast<double>(index) / (count - 1) : half);
}

std::vector<double> KXGradientScale::obtainClassBounds() const
{
    std::vector<double> bounds;
    const int count = std::min(classCount, greatestClassCount);
    for (int i = 0; classCount > 0 && i <= count; ++i) {
        const double share = static_cast<double>(i) / count;
        bounds.push_back(i == count ? greatest : least * (1 - share) + greatest * share);
    }
    return bounds;
}
