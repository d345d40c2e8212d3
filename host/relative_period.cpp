#include "relative_period.h"

#include "json_cursor.h"
#include "time_step.h"

#include <chrono>
#include <ctime>
#include <vector>

namespace {

using namespace std::chrono;
using Period = KXControlChartPeriod;

/** Of the periods after None, in their order. */
const std::vector<std::string> names = {"today",       "lastSteps",     "thisMonth", "lastMonth",
                                        "thisQuarter", "lastQuarter",   "thisYear",  "lastYear",
                                        "monthToDate", "quarterToDate", "yearToDate"};
constexpr std::int64_t secondsOfDay = std::int64_t{24} * 60 * 60;
/** More steps than any years have; it keeps what is computed with them in range. */
constexpr std::uint64_t mostSteps = 1'000'000;

/** @return the first of a month that lies some months after that of day */
sys_days addMonths(sys_days day, int count)
{
    const year_month_day date(day);
    return sys_days((date.year() / date.month() + months(count)) / 1);
}

sys_days obtainQuarter(sys_days day)
{
    const auto number = static_cast<int>(static_cast<unsigned>(year_month_day(day).month()));
    return addMonths(day, -((number - 1) % 3));
}

sys_days obtainYear(sys_days day) { return sys_days(year_month_day(day).year() / January / 1); }

/** @return some moment in the step that lies some steps before that of now */
double goBack(double now, DateLevel level, int steps)
{
    const auto today = floor<days>(sys_seconds(seconds(static_cast<std::int64_t>(now))));
    const auto toSeconds = [](sys_days day) {
        return static_cast<double>(sys_seconds(day).time_since_epoch().count());
    };
    switch (level) {
    case DateLevel::Year:
        return toSeconds(addMonths(today, -12 * steps));
    case DateLevel::Quarter:
        return toSeconds(addMonths(today, -3 * steps));
    case DateLevel::Month:
        return toSeconds(addMonths(today, -steps));
    case DateLevel::Week:
        return now - 7.0 * secondsOfDay * steps;
    case DateLevel::Day:
    case DateLevel::DayOfWeek:
        return now - static_cast<double>(secondsOfDay) * steps;
    case DateLevel::Hour:
    case DateLevel::HourOfDay:
        return now - 3600.0 * steps;
    case DateLevel::Minute:
        return now - 60.0 * steps;
    case DateLevel::Second:
        break;
    }
    return now - steps;
}

std::optional<PeriodEnds> makeEnds(DateLevel level, double from, double to)
{
    const std::optional<TimeStep> first = TimeStep::fromSeconds(from, level);
    const std::optional<TimeStep> last = TimeStep::fromSeconds(to, level);
    if (!first || !last)
        return std::nullopt;
    return PeriodEnds{level, first->obtainText(), last->obtainText()};
}

} // namespace

std::optional<PeriodEnds> obtainPeriodEnds(const RelativePeriod& period, DateLevel level, double now)
{
    if (!TimeStep::fromSeconds(now, level))
        return std::nullopt;
    if (period.period == Period::LastSteps) {
        if (period.steps == 0 || period.steps > mostSteps)
            return std::nullopt;
        return makeEnds(level, goBack(now, level, static_cast<int>(period.steps - 1)), now);
    }
    const auto today = floor<days>(sys_seconds(seconds(static_cast<std::int64_t>(now))));
    const sys_days thisQuarter = obtainQuarter(today), thisMonth = addMonths(today, 0),
                   thisYear = obtainYear(today);
    const auto make = [](sys_days from, sys_days to) {
        return makeEnds(DateLevel::Day, static_cast<double>(sys_seconds(from).time_since_epoch().count()),
                        static_cast<double>(sys_seconds(to).time_since_epoch().count()));
    };
    switch (period.period) {
    case Period::Today:
        return make(today, today);
    case Period::ThisMonth:
        return make(thisMonth, addMonths(thisMonth, 1) - days(1));
    case Period::LastMonth:
        return make(addMonths(thisMonth, -1), thisMonth - days(1));
    case Period::ThisQuarter:
        return make(thisQuarter, addMonths(thisQuarter, 3) - days(1));
    case Period::LastQuarter:
        return make(addMonths(thisQuarter, -3), thisQuarter - days(1));
    case Period::ThisYear:
        return make(thisYear, addMonths(thisYear, 12) - days(1));
    case Period::LastYear:
        return make(addMonths(thisYear, -12), thisYear - days(1));
    case Period::MonthToDate:
        return make(thisMonth, today);
    case Period::QuarterToDate:
        return make(thisQuarter, today);
    case Period::YearToDate:
        return make(thisYear, today);
    case Period::None:
    case Period::LastSteps:
        break;
    }
    return std::nullopt;
}

double readWallClock()
{
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    if (!local)
        return static_cast<double>(now);
    const sys_days day = year(local->tm_year + 1900) / month(static_cast<unsigned>(local->tm_mon) + 1) /
                         local->tm_mday;
    const sys_seconds moment = day + hours(local->tm_hour) + minutes(local->tm_min) + seconds(local->tm_sec);
    return static_cast<double>(moment.time_since_epoch().count());
}

KXControlChartPeriod readPeriod(const JsonCursor& place)
{
    return static_cast<KXControlChartPeriod>(place.readName(names) + 1);
}

const std::string& obtainPeriodName(KXControlChartPeriod period)
{
    return names.at(static_cast<std::size_t>(period) - 1);
}
