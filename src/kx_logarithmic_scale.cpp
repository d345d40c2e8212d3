#include "kx_logarithmic_scale.h"

#include "kx_axis_scale.h"

#include <algorithm>
#include <cmath>

namespace {

/** So many powers of ten apart, ends stand on powers. */
constexpr double leastDecades = 2;
/** With fewer powers of ten there are ticks between them, and with fewer of these at even steps. */
constexpr std::size_t leastTickCount = 3;
constexpr double greatestTickFactor = 2; // of the wanted number
/** Exponents that differ by less are the same. */
constexpr double noise = 1e-9;
constexpr double factors[] = {1, 2, 5};

/** @return the exponent of the nearest 1, 2 or 5 times a power of ten at or beyond exponent */
double roundOut(double exponent, bool isLow)
{
    const double power = std::floor(exponent + noise);
    double below = power, above = power + 1;
    for (const double factor : factors) {
        const double step = power + std::log10(factor);
        if (step <= exponent + noise)
            below = step;
        else
            above = std::min(above, step);
    }
    if (isLow || exponent - below < noise)
        return below;
    return above;
}

std::vector<double> obtainPowers(double low, double high, int wanted)
{
    const double step = std::max(std::ceil((high - low) / (greatestTickFactor * std::max(wanted, 1))), 1.0);
    std::vector<double> ticks;
    for (double power = std::ceil((low - noise) / step) * step; power <= high + noise; power += step)
        ticks.push_back(power + 0.0);
    return ticks;
}

std::vector<double> obtainDivided(double low, double high)
{
    std::vector<double> ticks;
    for (double power = std::floor(low); power <= high; ++power)
        for (const double factor : factors)
            if (const double tick = power + std::log10(factor); tick >= low - noise && tick <= high + noise)
                ticks.push_back(tick);
    return ticks;
}

std::vector<double> obtainEven(double low, double high, int wanted)
{
    const double from = std::pow(10.0, low), to = std::pow(10.0, high);
    const double step = kxCalculateSuitableRange((to - from) / std::max(wanted - 1, 1), true);
    std::vector<double> ticks;
    if (!(step > 0) || !std::isfinite(to) || (to - from) / step > greatestTickFactor * std::max(wanted, 2))
        return ticks;
    for (double n = std::max(std::ceil(from / step - noise), 1.0); n * step <= to * (1 + noise); ++n)
        ticks.push_back(std::log10(n * step));
    return ticks;
}

} // namespace

KXLogarithmicRange kxObtainLogarithmicRange(double low, double high, bool isRounded)
{
    if (!(low > 0) || !(high >= low) || !std::isfinite(high))
        return {};
    KXLogarithmicRange range{std::log10(low), std::log10(high)};
    if (!isRounded)
        return range;
    if (range.high - range.low > leastDecades)
        return {std::floor(range.low + noise), std::ceil(range.high - noise)};
    range = {roundOut(range.low, true), roundOut(range.high, false)};
    return range.low < range.high ? range : KXLogarithmicRange{range.low, roundOut(range.high + 0.1, false)};
}

std::vector<double> kxObtainLogarithmicTicks(double low, double high, int wanted)
{
    if (!std::isfinite(low) || !std::isfinite(high) || !(low < high) || high - low > 1000)
        return {};
    std::vector<double> ticks = obtainPowers(low, high, wanted);
    if (ticks.size() >= leastTickCount)
        return ticks;
    ticks = obtainDivided(low, high);
    if (ticks.size() >= leastTickCount)
        return ticks;
    std::vector<double> even = obtainEven(low, high, wanted);
    return even.size() > ticks.size() ? even : ticks;
}
