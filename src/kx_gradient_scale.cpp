#include "kx_gradient_scale.h"

#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double half = 0.5;

/** More classes than there are colours tell nothing. */
constexpr int greatestClassCount = 256;

UXColor mix(const UXColor& from, const UXColor& to, double share)
{
    const auto part = [share](int a, int b) {
        return uxSaturateToInt(std::floor((static_cast<double>(b) - a) * share) + a);
    };
    return {part(from.red, to.red), part(from.green, to.green), part(from.blue, to.blue),
            from.alpha + (to.alpha - from.alpha) * share};
}

/** @return how much of the way from one value to another, which is longer, lies before value. Of whole
 * numbers the differences are exact; those of shares would lose a unit of colour now and then. */
double obtainShare(double value, double from, double to)
{
    // Halves, as the whole way may be longer than a double.
    return (value / 2 - from / 2) / (to / 2 - from / 2);
}

} // namespace

/** @param value inside of the range */
UXColor KXGradientScale::_obtainColorAt(double value) const
{
    const double middle = middleValue > least && middleValue < greatest ? middleValue
                                                                        : least / 2 + greatest / 2;
    if (value < middle)
        return mix(minColor, middleColor, obtainShare(value, least, middle));
    return mix(middleColor, maxColor, value > middle ? obtainShare(value, middle, greatest) : 0);
}

double KXGradientScale::_obtainValueAt(double share) const { return least * (1 - share) + greatest * share; }

UXColor KXGradientScale::obtainColor(double value) const
{
    if (std::isnan(value))
        return {0, 0, 0, 0};
    const double inside = std::clamp(value, least, greatest);
    if (classCount <= 0)
        return _obtainColorAt(inside);
    // The first class and the last one have the colours of the ends.
    const int count = std::min(classCount, greatestClassCount);
    const double share = least < greatest ? obtainShare(inside, least, greatest) : half;
    const int index = std::min(static_cast<int>(share * count), count - 1);
    return _obtainColorAt(_obtainValueAt(count > 1 ? static_cast<double>(index) / (count - 1) : half));
}

std::vector<double> KXGradientScale::obtainClassBounds() const
{
    std::vector<double> bounds;
    const int count = std::min(classCount, greatestClassCount);
    for (int i = 0; classCount > 0 && i <= count; ++i) {
        const double share = static_cast<double>(i) / count;
        bounds.push_back(i == count ? greatest : _obtainValueAt(share));
    }
    return bounds;
}
