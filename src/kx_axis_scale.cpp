#include "kx_axis_scale.h"

#include "kx_axis_property.h"
#include "kx_chart_data_format.h"
#include "kx_logarithmic_scale.h"
#include "ux/ux_read_double.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

namespace {

constexpr double tolerance = 1e-8;
constexpr double largest = (std::numeric_limits<double>::max)();
constexpr int largestCount = (std::numeric_limits<int>::max)();

/** @return a count of intervals without the noise of its division: 0.6 / 0.2 is 3 */
double roundOffNoise(double number)
{
    const double whole = std::round(number);
    return std::abs(number - whole) <= 1e-12 * std::abs(whole) ? whole : number;
}

double saturate(double value) { return std::isnan(value) ? 0 : std::clamp(value, -largest, largest); }

double roundShare(double share, bool forTicks)
{
    if (forTicks)
        return share <= 1.5 ? 1 : share <= 3 ? 2 : share <= 7 ? 5 : 10;
    return share <= 1 ? 1 : share <= 2 ? 2 : share <= 5 ? 5 : 10;
}

struct Range {
    double min = 0, max = 0;

    double obtainLength() const { return std::clamp(max - min, 0.0, largest); }
};

bool isCustomRangeUsable(const KXAxisProperty& property)
{
    const double min = property.getCustomMinAxisValue(), max = property.getCustomMaxAxisValue();
    return min < max && std::isfinite(min) && std::isfinite(max);
}

Range obtainDataRange(const KXAxisProperty& property, const KXAxisChartAxisCacheData& cache)
{
    if (property.getIsStacked() && !cache.isUnstackable)
        return {saturate(cache.stackedMin), saturate(cache.stackedMax)};
    return {saturate(cache.dataMin), saturate(cache.dataMax)};
}

double obtainTickInterval(const KXAxisProperty& property, const KXAxisChartAxisCacheData& cache, double range)
{
    const int wanted = property.getAxisPossibleTickCount();
    double interval = range;
    if (cache.presetTickInterval > 0 && std::isfinite(cache.presetTickInterval))
        interval = cache.presetTickInterval;
    else if (cache.isSmallRange && wanted > range)
        interval = range;
    else if (wanted > 1)
        interval = kxCalculateSuitableRange(range / (wanted - 1), true);
    return std::abs(interval) < tolerance ? 1.0 : interval;
}

/** Moves the bounds out to whole intervals, and one interval further where the data come near to a bound that
 *  is more than three intervals from zero. */
Range addHeadroom(const Range& range, double interval)
{
    const double low = std::floor(roundOffNoise(range.min / interval));
    const double high = std::ceil(roundOffNoise(range.max / interval));
    // A lower bound below zero stays where it is: it is compared with its sign.
    double min = low * interval;
    if (low != 0 && std::abs(range.min) > std::abs(0.95 * min) && min > std::abs(0.75 * (low - 1) * interval))
        min = (low - 1) * interval;
    double max = high * interval;
    if (high != 0 && std::abs(range.max) > std::abs(0.95 * max) &&
        std::abs(max) > std::abs(0.75 * (high + 1) * interval))
        max = (high + 1) * interval;
    // Adding 0.0 turns -0 into 0 for the label.
    return {saturate(min) + 0.0, saturate(max) + 0.0};
}

bool isPercentageAxis(const KXAxisProperty& property, const KXAxisChartAxisCacheData& cache)
{
    return property.obtainIs100PercentStacked() && !cache.isUnstackable;
}

/** Turns the axis over to the other side of zero, ticks included. Zero is always one of them; of more than
 * anybody can see, every n-th one from there is. */
void mirror(KXAxisChartAxisCacheData& cache)
{
    constexpr double greatestTickCount = 1000; // on each side
    cache.axisMax = std::max(cache.axisMax, 0.0);
    if (cache.axisMax == 0)
        cache.axisMax = 1;
    cache.axisMin = -cache.axisMax;
    cache.ownTicks.clear();
    const double count = std::floor(roundOffNoise(cache.axisMax / cache.tickInterval));
    if (!std::isfinite(count))
        return;
    const double step = std::max(std::ceil(count / greatestTickCount), 1.0), half = std::floor(count / step);
    for (double i = -half; i <= half; ++i)
        cache.ownTicks.push_back(i * step * cache.tickInterval + 0.0);
}

void updateLogarithmicAxis(const KXAxisProperty& property, KXAxisChartAxisCacheData& cache, bool roundsRange)
{
    const bool isCustom = !property.getAutoAxisRange() && isCustomRangeUsable(property) &&
                          property.getCustomMinAxisValue() > 0;
    const KXLogarithmicRange range = isCustom
                                         ? kxObtainLogarithmicRange(property.getCustomMinAxisValue(),
                                                                    property.getCustomMaxAxisValue(), false)
                                         : kxObtainLogarithmicRange(cache.dataMin, cache.dataMax,
                                                                    roundsRange);
    cache.axisMin = range.low;
    cache.axisMax = range.high;
    cache.tickInterval = 1;
    cache.ownTicks = kxObtainLogarithmicTicks(range.low, range.high, property.getAxisPossibleTickCount());
}

void updateValueAxis(KXAxisProperty& property, KXAxisChartAxisCacheData& cache, bool roundsRange)
{
    if (cache.isLogarithmic) {
        updateLogarithmicAxis(property, cache, roundsRange);
        return;
    }

    // 1. Percentages need no look at the data, and their bounds are round.
    const bool isPercentage = isPercentageAxis(property, cache);
    const bool isAutomatic = property.getAutoAxisRange() && !isPercentage;
    const bool isCustom = !isPercentage && !isAutomatic && isCustomRangeUsable(property);
    Range bounds = obtainDataRange(property, cache);
    if (isPercentage)
        bounds = {0, 100};
    else if (isCustom)
        bounds = {property.getCustomMinAxisValue(), property.getCustomMaxAxisValue()};

    // 2. A user who turns the automatic range off finds the data's range in the custom one.
    if (isAutomatic && !isCustomRangeUsable(property)) {
        property.setCustomMinAxisValue(saturate(cache.dataMin));
        property.setCustomMaxAxisValue(saturate(cache.dataMax));
    }

    // 3. The interval divides the range, rounded where the bounds will be.
    const bool rounds = isAutomatic && roundsRange;
    double range = bounds.obtainLength();
    if (rounds)
        range = kxCalculateSuitableRange(range, false);
    double interval = obtainTickInterval(property, cache, range);
    if (rounds && interval > 0)
        bounds = addHeadroom(bounds, interval);

    // 4. The user's interval comes last, so that it moves no bound.
    const double custom = isPercentage ? property.getCustomAxisTickIntervalFor100PercentStacked()
                                       : property.getCustomAxisTickInterval();
    if (!property.getAutoAxisTicks() && custom > 0 && std::isfinite(custom))
        interval = custom;
    cache.axisMin = bounds.min;
    cache.axisMax = bounds.max;
    cache.tickInterval = interval;

    // 5. The other side is the same.
    if (cache.isMirrored)
        mirror(cache);
}

/** @return how many intervals lie between the axis's minimum and value */
double obtainIntervals(const KXAxisChartAxisCacheData& cache, double value)
{
    const double distance = value - cache.axisMin;
    return roundOffNoise(std::isinf(distance)
                             ? value / cache.tickInterval - cache.axisMin / cache.tickInterval
                             : distance / cache.tickInterval);
}

/** @return the indexes of the first tick from first on and of the last one up to last, which is below the
 * first where none is inside */
std::pair<double, double> obtainTicksInside(const KXAxisChartAxisCacheData& cache, double first, double last,
                                            int count)
{
    if (cache.ownTicks.empty())
        return {(std::max)(std::ceil(obtainIntervals(cache, first)), 0.0),
                (std::min)(std::floor(obtainIntervals(cache, last)), count - 1.0)};
    const auto begin = cache.ownTicks.begin(), end = cache.ownTicks.end();
    return {static_cast<double>(std::lower_bound(begin, end, first) - begin),
            static_cast<double>(std::upper_bound(begin, end, last) - begin) - 1};
}

/** @return the double next to 10 to the exponent, 0 to 308; pow is a little off in some C libraries */
double obtainPowerOfTen(int exponent)
{
    char text[16] = "1e";
    char* const end = std::to_chars(text + 2, text + sizeof text, exponent).ptr;
    double power = 1;
    uxReadDouble(text, end, power);
    return power;
}

} // namespace

double kxCalculateSuitableRange(double amount, bool forTicks)
{
    // 1. What is too small to be divided, or no amount at all, has no range.
    if (!(amount >= tolerance))
        return 0;
    if (std::isinf(amount))
        return largest;

    // 2. Scale by whole powers of ten only: 5 / 100000 prints as 0.00005 and 5 * 0.00001 does not.
    const double exponent = std::floor(std::log10(amount));
    const double power = obtainPowerOfTen(static_cast<int>(std::abs(exponent)));
    const double factor = roundShare(exponent < 0 ? amount * power : amount / power, forTicks);
    return (std::min)(exponent < 0 ? factor / power : factor * power, largest);
}

void kxSetAxisDimension(KXAxisChartAxisCacheData& cache, KXChartDataType type)
{
    cache.isNumberDimension = type == KXChartDataType::Integer || type == KXChartDataType::Float;
    cache.isTemporalDimension = type == KXChartDataType::Date || type == KXChartDataType::Time ||
                                type == KXChartDataType::DateTime;
    // The interval of the wanted ticks would lie below 1, and there is nothing between whole numbers: the
    // axis of so few of them shows its two ends.
    cache.isSmallRange = type == KXChartDataType::Integer;
    cache.needsUpdate = true;
}

bool kxUpdateAxisCacheData(KXAxisProperty* property, KXAxisChartAxisCacheData* cache, bool roundsRange)
{
    if (!property || !cache || !cache->needsUpdate)
        return false;
    cache->needsUpdate = false;
    if (cache->isValueAxis) {
        updateValueAxis(*property, *cache, roundsRange);
    } else {
        cache->axisMin = 0;
        cache->axisMax = static_cast<double>(cache->categoryCount);
        cache->tickInterval = 1.0;
        cache->ownTicks.clear();
    }
    return true;
}

int kxObtainAxisTickCount(const KXAxisChartAxisCacheData& cache)
{
    if (!cache.ownTicks.empty())
        return uxSaturateToInt(cache.ownTicks.size());
    if (!cache.isValueAxis)
        return uxSaturateToInt(cache.categoryCount);
    const double intervals = std::floor(obtainIntervals(cache, cache.axisMax));
    if (!(intervals >= 1) || !(cache.tickInterval > 0))
        return 0;
    return intervals >= largestCount ? largestCount : static_cast<int>(intervals) + 1;
}

double kxObtainAxisTick(const KXAxisChartAxisCacheData& cache, int index)
{
    const bool isListed = index >= 0 && std::cmp_less(index, cache.ownTicks.size());
    return isListed ? cache.ownTicks[static_cast<std::size_t>(index)]
                    : cache.axisMin + index * cache.tickInterval;
}

int kxObtainAxisAnchorTick(const KXAxisChartAxisCacheData& cache)
{
    return cache.isMirrored && !cache.isLogarithmic ? uxSaturateToInt(cache.ownTicks.size() / 2) : 0;
}

std::vector<double> kxObtainAxisTicks(const KXAxisChartAxisCacheData& cache, double first, double last,
                                      std::size_t limit)
{
    // 1. Narrow the indexes down to those inside.
    const int count = kxObtainAxisTickCount(cache);
    if (count == 0 || limit == 0 || !(first <= last))
        return {};
    const auto [from, to] = obtainTicksInside(cache, first, last, count);
    if (!(from <= to))
        return {};

    // 2. Step over as many as the limit asks for. The step depends on the window's length alone, and it keeps
    //    to multiples, so that scrolling does not change the choice.
    const double inside = cache.ownTicks.empty() ? std::floor((last - first) / cache.tickInterval)
                                                 : to - from;
    const double most = (std::min)(inside + 1, count * 1.0);
    const auto room = static_cast<double>((std::min)(limit, static_cast<std::size_t>(largestCount)));
    const auto step = static_cast<std::int64_t>((std::max)(1.0, std::ceil(most / room)));
    std::int64_t index = (static_cast<std::int64_t>(from) + step - 1) / step * step;

    // 3. Where the interval is lost beside the values, neighbours fall together and count once.
    const double noise = 1e-9 * cache.tickInterval;
    std::vector<double> ticks;
    for (; index <= static_cast<std::int64_t>(to) && ticks.size() < limit; index += step) {
        const double tick = kxObtainAxisTick(cache, static_cast<int>(index));
        const bool isInside = std::isfinite(tick) && tick >= first - noise && tick <= last + noise;
        if (isInside && (ticks.empty() || tick > ticks.back()))
            ticks.push_back(tick);
    }
    return ticks;
}

std::string kxFormatPercentage(double value)
{
    char text[64];
    const std::to_chars_result written = std::to_chars(text, text + sizeof text, value,
                                                       std::chars_format::general, 3);
    return std::string(text, written.ptr) + '%';
}

double kxObtainValueOfExponent(double exponent)
{
    const double value = std::pow(10.0, exponent);
    char text[64];
    const std::to_chars_result written = std::to_chars(text, text + sizeof text, value,
                                                       std::chars_format::scientific, 12);
    double rounded = value;
    uxReadDouble(text, written.ptr, rounded);
    return rounded;
}

std::string kxFormatAxisTick(const KXAxisProperty& property, const KXChartDataFormat& format, double value)
{
    return property.obtainIs100PercentStacked() ? kxFormatPercentage(value) : format.formatNumber(value);
}
