#include "kx_calendar_ticks.h"
#include "kx_calendar_time.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <random>

namespace {

using Unit = KXCalendarUnit;

double at(int year, int month, int day, int hour = 0, int minute = 0, double second = 0)
{
    return kxObtainCalendarSeconds({year, month, day, hour, minute, second});
}

/** As many letters as there is room for, eight units wide each, and a gap. */
auto fitsIn(double length, double from, double to)
{
    return [=](const KXCalendarTicks& ticks) {
        double end = -1e300;
        for (std::size_t i = 0; i < ticks.values.size(); ++i) {
            const double place = to > from ? (ticks.values[i] - from) / (to - from) * length : 0;
            const double half = static_cast<double>(ticks.texts[i].size()) * 4;
            if (place - half < end + 8)
                return false;
            end = place + half;
        }
        return true;
    };
}

} // namespace

TEST(KXCalendarTime, TellsMomentsAndFindsThemAgain)
{
    EXPECT_EQ(at(1970, 1, 1), 0);
    EXPECT_EQ(at(1, 1, 1), kxCalendarBegin);
    EXPECT_EQ(at(10000, 1, 1), std::nextafter(kxCalendarEnd, 0.0));
    struct Case {
        const char* name;
        double seconds;
        const char* text;
    };
    const Case cases[] = {
        {"leap day", 951782400, "2000-02-29 00:00:00"},
        {"before the epoch", -0.5, "1969-12-31 23:59:59"},
        {"no leap year", -2203891200, "1900-03-01 00:00:00"},
        {"first moment", kxCalendarBegin - 5, "0001-01-01 00:00:00"},
        {"last moment", 1e300, "9999-12-31 23:59:59"},
        {"not a number", NAN, "1970-01-01 00:00:00"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(kxObtainCalendarText(kxObtainCalendarTime(c.seconds)), c.text) << c.name;
    EXPECT_EQ(kxObtainCalendarTime(at(2023, 2, 31)).day, 28) << "the last day of a shorter month";
    EXPECT_EQ(kxObtainCalendarTime(at(2023, 14, 5)).year, 2024);
    EXPECT_EQ(kxObtainCalendarTime(at(2023, -1, 5)).month, 11);
    EXPECT_EQ(kxObtainCalendarText(kxObtainCalendarTime(0.9999999), 3), "1970-01-01 00:00:00.999");

    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> moments(kxCalendarBegin, kxCalendarEnd);
    for (int i = 0; i < 2000; ++i) {
        const double moment = std::floor(moments(random));
        EXPECT_EQ(kxObtainCalendarSeconds(kxObtainCalendarTime(moment)), moment);
    }
}

TEST(KXCalendarTicks, NamesTheLongerUnitWhereItChanges)
{
    struct Case {
        const char* name;
        KXCalendarStep step;
        KXChartDataType type;
        double from, to;
        std::vector<std::string> texts;
    };
    const Case cases[] = {
        {"months",
         {Unit::Month, 1},
         KXChartDataType::Date,
         at(2023, 10, 15),
         at(2024, 2, 1),
         {"Nov 2023", "Dec", "Jan 2024", "Feb"}},
        {"days",
         {Unit::Day, 1},
         KXChartDataType::Date,
         at(2024, 2, 28),
         at(2024, 3, 2),
         {"28 Feb 2024", "29", "1 Mar", "2"}},
        {"Mondays",
         {Unit::Day, 7},
         KXChartDataType::Date,
         at(2024, 1, 1),
         at(2024, 1, 15),
         {"1 Jan 2024", "8", "15"}},
        {"hours over midnight",
         {Unit::Second, 21600},
         KXChartDataType::DateTime,
         at(1969, 12, 31, 18),
         at(1970, 1, 1, 6),
         {"31 Dec 1969 18:00", "1 Jan 1970 00:00", "06:00"}},
        {"parts of a second",
         {Unit::Second, 0.05},
         KXChartDataType::Time,
         9.9,
         10.01,
         {"00:00:09.90", "00:00:09.95", "00:00:10.00"}},
        {"hours of a duration",
         {Unit::Second, 86400},
         KXChartDataType::Time,
         -86400,
         172800,
         {"-24:00", "00:00", "24:00", "48:00"}},
        {"centuries from year 1",
         {Unit::Year, 100},
         KXChartDataType::Date,
         kxCalendarBegin,
         at(201, 1, 1),
         {"100", "200"}},
    };
    for (const Case& c : cases) {
        const std::vector<double> values = kxObtainCalendarBoundaries(c.step, c.from, c.to, 100);
        EXPECT_EQ(kxObtainCalendarTickTexts(c.step, c.type, values), c.texts) << c.name;
    }
}

/** From a thousandth of a second to nine thousand years, wherever these begin: the finest step that fits, on
 * boundaries of the calendar, each said differently. */
TEST(KXCalendarTicks, FindsTheFinestBoundariesOfEverySpan)
{
    const double spans[] = {1e-3,
                            0.7,
                            3,
                            45,
                            600,
                            7200,
                            40000,
                            86400 * 2.0,
                            6e5,
                            2.6e6,
                            9e6,
                            3.2e7,
                            1.6e8,
                            6e8,
                            3e9,
                            3e10,
                            9000 * 365.2425 * 86400};
    const double starts[] = {at(1, 1, 1), at(1582, 10, 3, 23), at(1969, 12, 31, 23, 59, 58),
                             at(2024, 2, 27, 5)};
    for (const double start : starts)
        for (const double span : spans)
            for (const double width : {160.0, 480.0, 1000.0}) {
                SCOPED_TRACE(testing::Message() << kxObtainCalendarText(kxObtainCalendarTime(start))
                                                << " for " << span << " s on " << width);
                const double to = start + span;
                if (to >= kxCalendarEnd || (span < 0.01 && std::abs(start) > 1e10))
                    continue; // a double does not tell such moments apart
                const auto fits = fitsIn(width, start, to);
                const KXCalendarTicks ticks = kxChooseCalendarTicks(KXChartDataType::DateTime, start, to, 0,
                                                                    200, fits);
                ASSERT_FALSE(ticks.values.empty());
                if (ticks.values.size() > 1) {
                    EXPECT_TRUE(fits(ticks));
                }
                for (std::size_t i = 0; i < ticks.values.size(); ++i) {
                    EXPECT_GE(ticks.values[i], start);
                    EXPECT_LE(ticks.values[i], to);
                    const std::chrono::sys_days date{
                        std::chrono::days{static_cast<int>(std::floor(ticks.values[i] / 86400))}};
                    const std::chrono::year_month_day parts{date};
                    const auto count = static_cast<int>(ticks.step.count);
                    const bool isBoundary =
                        (ticks.step.unit < Unit::Day || std::fmod(ticks.values[i], 86400) == 0) &&
                        (ticks.step.unit < Unit::Month || parts.day() == std::chrono::day{1}) &&
                        (ticks.step.unit != Unit::Month ||
                         (static_cast<unsigned>(parts.month()) - 1) % static_cast<unsigned>(count) == 0) &&
                        (ticks.step.unit != Unit::Year || (parts.month() == std::chrono::January &&
                                                           static_cast<int>(parts.year()) % count == 0)) &&
                        (ticks.step != KXCalendarStep{Unit::Day, 7} ||
                         std::chrono::weekday{date} == std::chrono::Monday);
                    EXPECT_TRUE(isBoundary) << kxObtainCalendarText(kxObtainCalendarTime(ticks.values[i]));
                    if (i > 0) {
                        EXPECT_GT(ticks.values[i], ticks.values[i - 1]);
                        EXPECT_NE(ticks.texts[i], ticks.texts[i - 1]);
                    }
                }
            }
}

TEST(KXCalendarTicks, HasNoneWhereNobodyCanDivide)
{
    const KXCalendarStep second{Unit::Second, 1};
    EXPECT_TRUE(kxObtainCalendarBoundaries(second, NAN, 5, 10).empty());
    EXPECT_TRUE(kxObtainCalendarBoundaries(second, 5, 1, 10).empty());
    EXPECT_TRUE(kxObtainCalendarBoundaries(second, 0, 1e300, 10).empty());
    EXPECT_TRUE(kxObtainCalendarBoundaries(second, 1e300, 1e300, 10).empty());
    EXPECT_TRUE(kxObtainCalendarBoundaries({Unit::Year, 1}, 1e12, 2e12, 1000000).empty());
    EXPECT_EQ(kxObtainCalendarBoundaries(second, 3, 3, 10), std::vector<double>{3});
    const KXCalendarTicks coarse = kxChooseCalendarTicks(KXChartDataType::Date, at(2020, 1, 1),
                                                         at(2021, 1, 1), 28 * 86400.0, 100,
                                                         [](const auto&) { return true; });
    EXPECT_EQ(coarse.step, (KXCalendarStep{Unit::Month, 1})) << "data by months have no ticks between them";
}
