#include "time_step.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "number_text.h"
#include "temporal_text.h"

namespace {

using namespace std::chrono;

int readDigits(std::string_view text, std::size_t start, std::size_t count)
{
    const auto digits = obtainInteger(text.substr(std::min(start, text.size()), count));
    return static_cast<int>(digits.value_or(-1));
}

std::string padNumber(int number, int digits)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%0*d", digits, number);
    return text.data();
}

sys_days firstOfYear(year y) { return sys_days(y / January / 1); }

/** @return the first Monday on or after a day */
sys_days nextMonday(sys_days day) { return day + (Monday - weekday(day)); }

/** @return the number of the week of its year; weeks begin on Monday, days before the first Monday are week 0
 */
int weekOfYear(sys_days day)
{
    const sys_days monday = nextMonday(firstOfYear(year_month_day(day).year()));
    return day < monday ? 0 : static_cast<int>((day - monday).count() / 7) + 1;
}

std::optional<sys_seconds> parseQuarter(std::string_view text)
{
    const int y = readDigits(text, 0, 4), quarter = readDigits(text, 6, 1);
    if (text.size() != 7 || text.substr(4, 2) != " Q" || y < 1 || quarter < 1 || quarter > 4)
        return std::nullopt;
    return sys_days(year(y) / month(static_cast<unsigned>(quarter * 3 - 2)) / 1);
}

std::optional<sys_seconds> parseWeek(std::string_view text)
{
    const int y = readDigits(text, 0, 4), week = readDigits(text, 6, 2);
    if (text.size() != 8 || text.substr(4, 2) != " W" || y < 1 || week < 0 || week > 53)
        return std::nullopt;
    const sys_days first = firstOfYear(year(y));
    return week == 0 ? first : nextMonday(first) + days(7 * (week - 1));
}

std::optional<sys_seconds> parseMoment(std::string_view text, bool hasDate)
{
    const std::optional<std::string> moment = hasDate ? obtainDateTimeText(text) : obtainTimeText(text);
    if (!moment)
        return std::nullopt;
    const std::size_t clock = hasDate ? 11 : 0;
    sys_days day{};
    if (hasDate)
        day = year(readDigits(*moment, 0, 4)) / month(static_cast<unsigned>(readDigits(*moment, 5, 2))) /
              static_cast<int>(readDigits(*moment, 8, 2));
    return day + hours(readDigits(*moment, clock, 2)) + minutes(readDigits(*moment, clock + 3, 2)) +
           seconds(readDigits(*moment, clock + 6, 2));
}

} // namespace

TimeStep::TimeStep(sys_seconds start, DateLevel level, bool hasDate)
    : m_start(start), m_level(level), m_hasDate(hasDate)
{
}

std::optional<TimeStep> TimeStep::parse(std::string_view text, DateLevel level)
{
    const bool hasDate = text.find(':') != 2;
    const std::optional<sys_seconds> start = level == DateLevel::Quarter ? parseQuarter(text)
                                             : level == DateLevel::Week  ? parseWeek(text)
                                                                         : parseMoment(text, hasDate);
    return start ? std::optional(TimeStep(*start, level, hasDate)) : std::nullopt;
}

std::optional<TimeStep> TimeStep::fromSeconds(double seconds)
{
    const auto first = static_cast<double>(sys_seconds(firstOfYear(year(1))).time_since_epoch().count());
    const auto end = static_cast<double>(sys_seconds(firstOfYear(year(10'000))).time_since_epoch().count());
    if (!(seconds >= first && seconds < end))
        return std::nullopt;
    const std::chrono::seconds whole(static_cast<std::int64_t>(std::floor(seconds)));
    return TimeStep(sys_seconds(whole), DateLevel::Second, true);
}

std::optional<TimeStep> TimeStep::fromSeconds(double seconds, DateLevel level, bool hasDate)
{
    const std::optional<TimeStep> moment = fromSeconds(seconds);
    constexpr double secondsOfDay = 24 * 60 * 60;
    if (!moment || (!hasDate && (seconds < 0 || seconds >= secondsOfDay)))
        return std::nullopt;
    // A text of the level names the step, whichever of its moments it was made of.
    sys_seconds start = moment->m_start;
    const sys_days day = floor<days>(start);
    const year_month_day date(day);
    switch (level) {
    case DateLevel::Year:
        start = firstOfYear(date.year());
        break;
    case DateLevel::Month:
        start = sys_days(date.year() / date.month() / 1);
        break;
    case DateLevel::Quarter:
    case DateLevel::Week:
        return parse(TimeStep(start, level, hasDate).obtainText(), level);
    case DateLevel::Day:
    case DateLevel::DayOfWeek:
        start = day;
        break;
    case DateLevel::Hour:
    case DateLevel::HourOfDay:
        start = floor<hours>(start);
        break;
    case DateLevel::Minute:
        start = floor<minutes>(start);
        break;
    case DateLevel::Second:
        break;
    }
    return TimeStep(start, level, hasDate);
}

std::string TimeStep::obtainText() const
{
    const sys_days day = floor<days>(m_start);
    const year_month_day date(day);
    const std::string yearText = padNumber(static_cast<int>(date.year()), 4);
    const int monthNumber = static_cast<int>(static_cast<unsigned>(date.month()));
    if (m_level == DateLevel::Quarter)
        return yearText + " Q" + padNumber((monthNumber + 2) / 3, 1);
    if (m_level == DateLevel::Week)
        return yearText + " W" + padNumber(weekOfYear(day), 2);

    const std::string dateText = yearText + '-' + padNumber(monthNumber, 2) + '-' +
                                 padNumber(static_cast<int>(static_cast<unsigned>(date.day())), 2);
    const bool hasTime = m_level == DateLevel::Hour || m_level == DateLevel::Minute ||
                         m_level == DateLevel::Second || m_level == DateLevel::HourOfDay;
    if (!hasTime)
        return dateText;
    const hh_mm_ss clock(m_start - day);
    const std::string timeText = padNumber(static_cast<int>(clock.hours().count()), 2) + ':' +
                                 padNumber(static_cast<int>(clock.minutes().count()), 2) + ':' +
                                 padNumber(static_cast<int>(clock.seconds().count()), 2);
    return m_hasDate ? dateText + ' ' + timeText : timeText;
}

double TimeStep::obtainSeconds() const { return static_cast<double>(m_start.time_since_epoch().count()); }

std::optional<TimeStep> TimeStep::obtainNext() const
{
    const sys_seconds next = _obtainNextStart();
    const bool isOver = m_level == DateLevel::DayOfWeek ? weekday(floor<days>(next)) == Monday
                        : m_hasDate                     ? next >= firstOfYear(year(10'000))
                                                        : next >= sys_days{} + days(1);
    return isOver ? std::nullopt : std::optional(TimeStep(next, m_level, m_hasDate));
}

sys_seconds TimeStep::_obtainNextStart() const
{
    const sys_days day = floor<days>(m_start);
    const year_month_day date(day);
    switch (m_level) {
    case DateLevel::Year:
        return sys_days(date + years(1));
    case DateLevel::Quarter:
        return sys_days(date + months(3));
    case DateLevel::Month:
        return sys_days(date + months(1));
    case DateLevel::Week:
        // The week in which a year begins is cut in two: the second part is the new year's.
        return std::min(nextMonday(day + days(1)), firstOfYear(date.year() + years(1)));
    case DateLevel::Day:
    case DateLevel::DayOfWeek:
        return m_start + days(1);
    case DateLevel::Hour:
    case DateLevel::HourOfDay:
        return m_start + hours(1);
    case DateLevel::Minute:
        return m_start + minutes(1);
    case DateLevel::Second:
        break;
    }
    return m_start + seconds(1);
}
