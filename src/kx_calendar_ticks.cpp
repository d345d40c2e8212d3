#include "kx_calendar_ticks.h"

#include "kx_calendar_time.h"
#include "ux/ux_localize.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using Unit = KXCalendarUnit;

constexpr double minute = 60, hour = 3600, day = 86400;
constexpr double week = 7;
/** 1970-01-05 was the first Monday. */
constexpr double firstMonday = 4 * day;

constexpr KXCalendarStep clockSteps[] = {
    {Unit::Second, 1e-6},        {Unit::Second, 2e-6},        {Unit::Second, 5e-6},
    {Unit::Second, 1e-5},        {Unit::Second, 2e-5},        {Unit::Second, 5e-5},
    {Unit::Second, 1e-4},        {Unit::Second, 2e-4},        {Unit::Second, 5e-4},
    {Unit::Second, 1e-3},        {Unit::Second, 2e-3},        {Unit::Second, 5e-3},
    {Unit::Second, 0.01},        {Unit::Second, 0.02},        {Unit::Second, 0.05},
    {Unit::Second, 0.1},         {Unit::Second, 0.2},         {Unit::Second, 0.5},
    {Unit::Second, 1},           {Unit::Second, 5},           {Unit::Second, 10},
    {Unit::Second, 15},          {Unit::Second, 30},          {Unit::Second, minute},
    {Unit::Second, 5 * minute},  {Unit::Second, 10 * minute}, {Unit::Second, 15 * minute},
    {Unit::Second, 30 * minute}, {Unit::Second, hour},        {Unit::Second, 3 * hour},
    {Unit::Second, 6 * hour},    {Unit::Second, 12 * hour},
};

constexpr KXCalendarStep dateSteps[] = {
    {Unit::Day, 1},    {Unit::Day, week},  {Unit::Month, 1},   {Unit::Month, 3},
    {Unit::Year, 1},   {Unit::Year, 2},    {Unit::Year, 5},    {Unit::Year, 10},
    {Unit::Year, 20},  {Unit::Year, 50},   {Unit::Year, 100},  {Unit::Year, 200},
    {Unit::Year, 500}, {Unit::Year, 1000}, {Unit::Year, 2000}, {Unit::Year, 5000},
};

/** A Time may be a duration of many days, which is counted in hours on. */
constexpr KXCalendarStep longClockSteps[] = {
    {Unit::Second, 24 * hour},     {Unit::Second, 48 * hour},     {Unit::Second, 120 * hour},
    {Unit::Second, 240 * hour},    {Unit::Second, 480 * hour},    {Unit::Second, 1200 * hour},
    {Unit::Second, 2400 * hour},   {Unit::Second, 4800 * hour},   {Unit::Second, 12000 * hour},
    {Unit::Second, 24000 * hour},  {Unit::Second, 48000 * hour},  {Unit::Second, 120000 * hour},
    {Unit::Second, 240000 * hour}, {Unit::Second, 480000 * hour}, {Unit::Second, 1200000 * hour},
};

template <std::size_t First, std::size_t Second>
constexpr auto join(const KXCalendarStep (&first)[First], const KXCalendarStep (&second)[Second])
{
    std::array<KXCalendarStep, First + Second> joined;
    std::copy(std::begin(first), std::end(first), joined.begin());
    std::copy(std::begin(second), std::end(second), joined.begin() + First);
    return joined;
}

constexpr auto calendarSteps = join(clockSteps, dateSteps);
constexpr auto timeSteps = join(clockSteps, longClockSteps);

/** Boundaries of a step whose length is always the same. Parts of a second are counted within theirs, since a
 * double cannot hold their number since 1970. */
class EvenBoundaries {
public:
    explicit EvenBoundaries(const KXCalendarStep& step)
        : m_parts(step.unit == Unit::Second && step.count < 1 ? std::round(1 / step.count) : 1),
          m_length(m_parts > 1 ? 1 : step.obtainSeconds()),
          m_origin(step.unit == Unit::Day && step.count == week ? firstMonday : 0)
    {
    }

    /** Goes to the first boundary that is not below moment. */
    void seek(double moment)
    {
        m_whole = std::floor((moment - m_origin) / m_length);
        m_part = std::floor((moment - m_origin - m_whole * m_length) / m_length * m_parts);
        while (obtain() < moment)
            next();
    }
    void next()
    {
        if (++m_part < m_parts)
            return;
        m_part = 0;
        ++m_whole;
    }
    double obtain() const { return m_origin + m_whole * m_length + m_part * m_length / m_parts; }

private:
    double m_parts, m_length, m_origin;
    double m_whole = 0, m_part = 0;
};

/** Boundaries of months and years. */
class CalendarBoundaries {
public:
    explicit CalendarBoundaries(const KXCalendarStep& step)
        : m_months(static_cast<int>(step.count) * (step.unit == Unit::Year ? 12 : 1))
    {
    }

    void seek(double moment)
    {
        const KXCalendarTime time = kxObtainCalendarTime(moment);
        m_month = (time.year * 12 + time.month - 1) / m_months * m_months;
        while (m_month < 12 || (obtain() < moment && m_month < endMonth))
            m_month += m_months; // there is no year 0
    }
    void next() { m_month += m_months; }
    double obtain() const
    {
        if (m_month >= endMonth)
            return std::numeric_limits<double>::infinity();
        return kxObtainCalendarSeconds({m_month / 12, m_month % 12 + 1, 1, 0, 0, 0});
    }

private:
    static constexpr int endMonth = 10000 * 12;

    int m_months;
    int m_month = 0; // counted from year 0
};

template <class Boundaries>
std::vector<double> collect(Boundaries boundaries, double from, double to, std::size_t limit)
{
    std::vector<double> values;
    for (boundaries.seek(from); boundaries.obtain() <= to; boundaries.next()) {
        if (values.size() == limit)
            return {};
        values.push_back(boundaries.obtain() + 0.0); // no -0
    }
    return values;
}

std::string obtainMonthName(int month)
{
    static constexpr const char* names[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return uxLocalizeString(names[month - 1]);
}

std::string padTwo(double number)
{
    const auto digits = std::to_string(static_cast<long long>(number));
    return digits.size() < 2 ? "0" + digits : digits;
}

/** @return how many decimals of a second tell ticks of the step apart */
int obtainDecimals(const KXCalendarStep& step)
{
    int decimals = 0;
    for (double rest = step.count; step.unit == Unit::Second && rest < 1 - 1e-9 && decimals < 6; rest *= 10)
        ++decimals;
    return decimals;
}

/** @return "13:05", or "13:05:07.25" where the step asks for it; hours of a duration go on beyond a day */
std::string obtainClockText(double seconds, const KXCalendarStep& step)
{
    const int decimals = obtainDecimals(step);
    const double scale = std::pow(10.0, decimals);
    double rest = std::round(std::abs(seconds) * scale); // whole parts, so that nothing is carried later
    const double parts = std::fmod(rest, scale);
    rest = std::floor(rest / scale);
    std::string text = (seconds < 0 ? "-" : "") + padTwo(std::floor(rest / hour)) + ':' +
                       padTwo(std::fmod(std::floor(rest / minute), 60));
    if (step.unit != Unit::Second || std::fmod(step.count, minute) == 0)
        return text;
    text += ':' + padTwo(std::fmod(rest, minute));
    if (decimals > 0) {
        const std::string digits = std::to_string(static_cast<long long>(parts));
        text += '.' + std::string(static_cast<std::size_t>(decimals) - digits.size(), '0') + digits;
    }
    return text;
}

/** @param before the tick before, null for the first one */
std::string obtainDateText(double value, const KXCalendarStep& step, const KXCalendarTime* before)
{
    const KXCalendarTime time = kxObtainCalendarTime(value);
    const bool newYear = !before || before->year != time.year;
    const bool newMonth = newYear || before->month != time.month;
    const bool newDay = newMonth || before->day != time.day;
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : " ") + part; };
    if (step.unit == Unit::Day || (step.unit == Unit::Second && newDay))
        add(std::to_string(time.day));
    if (step.unit == Unit::Month || (step.unit != Unit::Year && newMonth) ||
        (step.unit == Unit::Second && newDay))
        add(obtainMonthName(time.month));
    if (step.unit == Unit::Year || newYear)
        add(std::to_string(time.year));
    if (step.unit == Unit::Second)
        add(obtainClockText(value - std::floor(value / day) * day, step));
    return text;
}

} // namespace

double KXCalendarStep::obtainSeconds() const
{
    constexpr double year = 365.2425 * day; // of the Gregorian calendar, over 400 years
    switch (unit) {
    case Unit::Second:
        break;
    case Unit::Day:
        return count * day;
    case Unit::Month:
        return count * year / 12;
    case Unit::Year:
        return count * year;
    }
    return count;
}

std::span<const KXCalendarStep> kxObtainCalendarSteps(KXChartDataType type)
{
    if (type == KXChartDataType::Time)
        return timeSteps;
    return calendarSteps;
}

std::vector<double> kxObtainCalendarBoundaries(const KXCalendarStep& step, double from, double to,
                                               std::size_t limit)
{
    // 1. A range nobody can divide has none, and one with far too many is not walked.
    if (!std::isfinite(from) || !std::isfinite(to) || !(from <= to) || !(step.count > 0))
        return {};
    if ((to - from) / step.obtainSeconds() > static_cast<double>(limit) + 2)
        return {};
    // 2. Two boundaries have to be different numbers.
    const double greatest = (std::max)(std::abs(from), std::abs(to));
    if (greatest + step.obtainSeconds() / 4 == greatest)
        return {};
    // 3. Months and years differ in length.
    if (step.unit == Unit::Second || step.unit == Unit::Day)
        return collect(EvenBoundaries(step), from, to, limit);
    return collect(CalendarBoundaries(step), (std::max)(from, kxCalendarBegin), to, limit);
}

std::vector<std::string> kxObtainCalendarTickTexts(const KXCalendarStep& step, KXChartDataType type,
                                                   std::span<const double> values)
{
    std::vector<std::string> texts;
    texts.reserve(values.size());
    KXCalendarTime before;
    for (const double value : values) {
        texts.push_back(type == KXChartDataType::Time
                            ? obtainClockText(value, step)
                            : obtainDateText(value, step, texts.empty() ? nullptr : &before));
        before = kxObtainCalendarTime(value);
    }
    return texts;
}

KXCalendarTicks kxChooseCalendarTicks(KXChartDataType type, double from, double to, double leastSeconds,
                                      std::size_t limit,
                                      const std::function<bool(const KXCalendarTicks&)>& fits)
{
    if (type != KXChartDataType::Time) {
        from = (std::max)(from, kxCalendarBegin);
        to = (std::min)(to, std::nextafter(kxCalendarEnd, 0.0));
    }
    KXCalendarTicks chosen;
    for (const KXCalendarStep& step : kxObtainCalendarSteps(type)) {
        if (step.obtainSeconds() < leastSeconds)
            continue;
        KXCalendarTicks ticks{step, kxObtainCalendarBoundaries(step, from, to, limit), {}};
        if (ticks.values.empty())
            continue;
        ticks.texts = kxObtainCalendarTickTexts(step, type, ticks.values);
        chosen = std::move(ticks);
        if (fits(chosen))
            break;
    }
    return chosen;
}
