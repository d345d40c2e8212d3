#include "kx_axis_alignment.h"

#include "kx_axis_chart_axis_cache_data.h"
#include "kx_value_extremes.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double factors[] = {1, 2, 2.5, 5};
/** Intervals are counted with this much noise of their division. */
constexpr double noise = 1e-9;
/** More intervals make no grid. */
constexpr double greatestCount = 1000;

/** The ends of an axis in its intervals, which count from zero. */
struct Ends {
    double low = 0, high = 0;

    bool holdZero() const { return low <= 0 && high >= 0; }
    double obtainCount() const { return high - low; }
};

Ends obtainEnds(const KXAxisChartAxisCacheData& axis)
{
    return {axis.axisMin / axis.tickInterval, axis.axisMax / axis.tickInterval};
}

bool isWhole(double number)
{
    return std::isfinite(number) &&
           std::abs(number - std::round(number)) < noise * std::max(1.0, std::abs(number));
}

/** @return the shortest round interval that is not below least */
double roundUp(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double scale : {power, 10 * power})
        for (const double factor : factors)
            if (factor * scale >= least * (1 - noise))
                return factor * scale;
    return 10 * power;
}

/** @return the next one above a round interval */
double obtainNext(double interval) { return roundUp(interval * (1 + 1e-6)); }

} // namespace

bool kxAlignAxes(KXAxisChartAxisCacheData& first, KXAxisChartAxisCacheData& second,
                 const KXValueExtremes& data)
{
    // 1. Only whole intervals can be shared, and only data with an extent need some.
    if (!(first.tickInterval > 0) || !(second.tickInterval > 0) || data.isEmpty())
        return false;
    Ends ends = obtainEnds(first);
    const Ends own = obtainEnds(second);
    if (!isWhole(ends.low) || !isWhole(ends.high) || !(ends.obtainCount() >= 1) ||
        ends.obtainCount() > greatestCount || !std::isfinite(data.max - data.min))
        return false;
    ends = {std::round(ends.low), std::round(ends.high)};

    // 2. About a common zero each side has to be long enough.
    if (ends.holdZero() && own.holdZero()) {
        if (data.min < 0 && ends.low == 0)
            ends.low = std::max(std::floor(own.low), -ends.high);
        if (data.max > 0 && ends.high == 0)
            ends.high = std::min(std::ceil(own.high), -ends.low);
        const double below = data.min < 0 ? data.min / ends.low : 0;
        const double above = data.max > 0 ? data.max / ends.high : 0;
        const double least = std::max(below, above);
        if (!(least > 0) || !std::isfinite(least))
            return false;
        second.tickInterval = roundUp(least);
        second.axisMin = ends.low * second.tickInterval + 0.0;
        second.axisMax = ends.high * second.tickInterval + 0.0;
        first.axisMin = ends.low * first.tickInterval + 0.0;
        first.axisMax = ends.high * first.tickInterval + 0.0;
        return true;
    }

    // 3. Elsewhere it begins at a whole interval of its own, as low as its data want.
    const double span = data.max - data.min;
    double interval = roundUp(std::max(span / ends.obtainCount(), second.tickInterval * noise));
    for (int i = 0; i < 8; ++i, interval = obtainNext(interval)) {
        const double low = std::floor(data.min / interval + noise);
        if ((low + ends.obtainCount()) * interval < data.max * (1 - (data.max > 0 ? noise : -noise)))
            continue;
        second.tickInterval = interval;
        second.axisMin = low * interval + 0.0;
        second.axisMax = (low + ends.obtainCount()) * interval;
        return true;
    }
    return false;
}
