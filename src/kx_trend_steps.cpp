#include "kx_trend_steps.h"

#include "kx_calendar_time.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double secondsPerDay = 86400;
constexpr double secondsPerWeek = 7 * secondsPerDay;
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

/** @return whether the steps are those of months, which may be told by their last days, however long these
 * are
 */
bool KXTrendSteps::_areMonths() const
{
    if (level != KXChartAggregateType::None)
        return level == KXChartAggregateType::WithoutDay;
    return std::ranges::all_of(numbers, [](double number) {
        return std::isnan(number) || kxObtainCalendarTime(number + secondsPerDay).day == 1;
    });
}

std::optional<KXTrendSteps::Span> KXTrendSteps::_obtainYearBefore(double number) const
{
    const auto around = [](double wanted) { return Span{wanted - nearness, wanted + nearness}; };
    switch (type) {
    case KXChartDataType::Integer:
        return around(number - 1); // what is whole counts years
    case KXChartDataType::Date:
    case KXChartDataType::DateTime: {
        if (level == KXChartAggregateType::Week)
            return around(number - weeksPerYear * secondsPerWeek);
        KXCalendarTime time = kxObtainCalendarTime(number);
        --time.year;
        const int months = level == KXChartAggregateType::Quarter ? 3 : _areMonths() ? 1 : 0;
        if (months == 0)
            return around(kxObtainCalendarSeconds(time));
        const int first = time.month - (time.month - 1) % months;
        return Span{kxObtainCalendarSeconds({time.year, first, 1}),
                    kxObtainCalendarSeconds({time.year, first + months, 1})};
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
    const std::optional<Span> wanted = _obtainYearBefore(numbers[step]);
    if (!wanted || !(wanted->to < numbers[step]))
        return std::nullopt;
    const auto found = std::ranges::find_if(
        numbers, [&](double number) { return number >= wanted->from && number < wanted->to; });
    if (found == numbers.end())
        return std::nullopt;
    const auto place = static_cast<std::size_t>(found - numbers.begin());
    return place < count ? std::optional(place) : std::nullopt;
}
