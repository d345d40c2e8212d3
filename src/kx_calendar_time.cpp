#include "kx_calendar_time.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

constexpr double secondsPerDay = 86400;

/** The largest double below the calendar's end. */
double obtainLastMoment() { return std::nextafter(kxCalendarEnd, 0.0); }

} // namespace

KXCalendarTime kxObtainCalendarTime(double seconds)
{
    if (std::isnan(seconds))
        return {};
    const double moment = std::clamp(seconds, kxCalendarBegin, obtainLastMoment());
    const double days = std::floor(moment / secondsPerDay);
    const std::chrono::year_month_day date{std::chrono::sys_days{std::chrono::days{static_cast<int>(days)}}};
    const double inDay = moment - days * secondsPerDay;
    const int minutes = static_cast<int>(inDay / 60);
    KXCalendarTime time;
    time.year = static_cast<int>(date.year());
    time.month = static_cast<int>(static_cast<unsigned>(date.month()));
    time.day = static_cast<int>(static_cast<unsigned>(date.day()));
    time.hour = minutes / 60;
    time.minute = minutes % 60;
    time.second = inDay - minutes * 60.0;
    return time;
}

double kxObtainCalendarSeconds(const KXCalendarTime& time)
{
    using namespace std::chrono;
    const int months = std::clamp(time.year, -1, 10001) * 12 + std::clamp(time.month, -120000, 120000) - 1;
    const int year = static_cast<int>(std::floor(months / 12.0));
    if (year < 1)
        return kxCalendarBegin;
    if (year > 9999)
        return obtainLastMoment();
    const year_month month = std::chrono::year{year} / (months - year * 12 + 1);
    const int lastDay = static_cast<int>(static_cast<unsigned>((month / last).day()));
    const sys_days date = month / std::clamp(time.day, 1, lastDay);
    const double inDay = time.hour * 3600.0 + time.minute * 60.0 + time.second;
    return std::clamp(static_cast<double>(date.time_since_epoch().count()) * secondsPerDay + inDay,
                      kxCalendarBegin, obtainLastMoment());
}

std::string kxObtainCalendarText(const KXCalendarTime& time, int decimals)
{
    const int digits = std::clamp(decimals, 0, 6);
    const double scale = std::pow(10.0, digits);
    const double whole = std::floor(time.second);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                  time.hour, time.minute, static_cast<int>(whole));
    std::string result = text;
    if (digits > 0) {
        const int fraction = static_cast<int>(
            (std::min)(std::floor((time.second - whole) * scale), scale - 1));
        std::snprintf(text, sizeof text, ".%0*d", digits, fraction);
        result += text;
    }
    return result;
}
