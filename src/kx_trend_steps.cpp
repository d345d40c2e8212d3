#include "kx_trend_steps.h"

#include "kx_calendar_time.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double secondsPerWeek = 7 * 86400.0;
constexpr double weeksPerYear = 52;
/** Seconds; times are told in whole ones, with rounding beyond. */
constexpr double nearness = 0.5;

} // namespace

std::optional<std::size_t> KXTrendSteps::findBack(std::size_t step, std::int64_t distance) const
{
    if (distance < 1 || static_cast<std::uint64_t>(distance) > step || step >= count)
        return std::nullopt;
    return step - static_cast<std::size_t>(distance);
}

std::optional<double> KXTrendSteps::_obtainYearBefore(double number) const
{
    switch (type) {
    case KXChartDataType::Integer:
        return number - 1; // what is whole counts years
    case KXChartDataType::Date:
    case KXChartDataType::DateTime: {
        if (level == KXChartAggregateType::Week)
            return number - weeksPerYear * secondsPerWeek;
        KXCalendarTime time = kxObtainCalendarTime(number);
        --time.year;
        return kxObtainCalendarSeconds(time);
    }
    case KXChartDataType::String:
    case KXChartDataType::Float:
    case KXChartDataType::Time:
        break;
    }
    return std::nullopt;
}

std::optional<std::size_t> KXTrendSteps::findYearBefore(std::size_t step) const
{
    if (step >= numbers.size() || std::isnan(numbers[step]))
        return std::nullopt;
    const std::optional<double> wanted = _obtainYearBefore(numbers[step]);
    if (!wanted || !(*wanted < numbers[step]))
        return std::nullopt;
    const auto found = std::ranges::find_if(
        numbers, [&](double number) { return std::abs(number - *wanted) < nearness; });
    if (found == numbers.end())
        return std::nullopt;
    const auto place = static_cast<std::size_t>(found - numbers.begin());
    return place < count ? std::optional(place) : std::nullopt;
}
