#include "kx_chart_data_format.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Type = KXChartDataType;
using Level = KXChartAggregateType;

// In the order in which they are replaced, each field with a letter of its own here: a is the weekday.
struct Token {
    std::string name;
    char field;
};
const std::vector<Token> tokens{
    {"YYYY", 'Y'}, {"YY", 'Y'},  {"QQ", 'Q'}, {"q", 'Q'},   {"MMMMM", 'M'}, {"MMMMC", 'M'}, {"MMMMJ", 'M'},
    {"MMMM", 'M'}, {"MMM", 'M'}, {"MM", 'M'}, {"MC", 'M'},  {"MJ", 'M'},    {"M", 'M'},     {"WDC", 'a'},
    {"WDJ", 'a'},  {"WD", 'a'},  {"Wd", 'a'}, {"wdC", 'a'}, {"wdJ", 'a'},   {"wd", 'a'},    {"ww", 'w'},
    {"w", 'w'},    {"WW", 'w'},  {"DD", 'D'}, {"D", 'D'},   {"hh", 'H'},    {"h", 'H'},     {"HH", 'H'},
    {"H", 'H'},    {"mm", 'm'},  {"m", 'm'},  {"SS", 'S'},  {"S", 'S'},     {"p", 'p'}};

std::string format(const std::string& pattern, const std::string& value, Type type, Level level)
{
    KXChartDataFormat made;
    made.setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
    made.setCustomDateTimeFormat(pattern);
    return made.formatDateTime(value, type, level);
}

/** The replacement of one token, step by step, with the places that were written as a set. */
void replaceString(std::string& text, const std::string& token, const std::string& replacement,
                   std::set<std::size_t>& written)
{
    std::size_t place = text.find(token);
    while (place != std::string::npos) {
        if (written.contains(place)) {
            place = text.find(token, place + 1);
            continue;
        }
        text.replace(place, token.size(), replacement);
        std::set<std::size_t> moved;
        for (const std::size_t position : written)
            moved.insert(position > place ? position + replacement.size() - token.size() : position);
        for (std::size_t i = 0; i < replacement.size(); ++i)
            moved.insert(place + i);
        written = moved;
        place = text.find(token, place + replacement.size());
    }
}

struct Value {
    const char* text;
    Type type;
    int level;
    const char* fields; // what it has
};

/** Token after token; what stands for a token is what a pattern of it alone gives. */
std::string replaceAll(std::string pattern, const Value& value)
{
    std::set<std::size_t> written;
    for (const Token& token : tokens) {
        if (std::string(value.fields).find(token.field) != std::string::npos)
            replaceString(pattern, token.name, format(token.name, value.text, value.type, Level{value.level}),
                          written);
    }
    return pattern;
}

} // namespace

TEST(KXDateTimeText, ValuesBecomeText)
{
    const char* const moment = "2024-03-05 14:07:09";
    const std::tuple<const char*, const char*, Type, int, const char*, const char*> cases[] = {
        {"every field", moment, Type::DateTime, 0, "YYYY YY MM M DD D HH H mm m SS S",
         "2024 24 03 3 05 5 14 14 07 7 09 9"},
        {"weeks from Monday", moment, Type::DateTime, 18, "WW ww w", "W10 10 10"},
        {"month's letters are not tokens", moment, Type::DateTime, 0, "MMMM MMM", "March Mar"},
        {"literal bytes stay", moment, Type::DateTime, 0, "YYYY年MM", "2024年03"},
        {"text runs into text", "2024-12-05", Type::Date, 0, "WMMMM", "Thursdayecember"},
        {"half days at midnight", "2024-03-05 00:00:00", Type::DateTime, 0, "hh h p", "00 0 AM"},
        {"half days at noon", "2024-03-05 12:00:00", Type::DateTime, 0, "hh p", "12 PM"},
        {"half days after noon", "2024-03-05 13:00:00", Type::DateTime, 0, "hh h p", "01 1 PM"},
        {"no half days of a day", moment, Type::DateTime, 15, "HH p", "14 p"},
        {"no week of a month", moment, Type::DateTime, 13, "ww w WW WD", "ww w WW Tuesday"},
        {"no day at its level", moment, Type::DateTime, 20, "MM DD D", "03 DD D"},
        {"decimals of the second", "2024-03-05 14:07:09.125", Type::DateTime, 18, "SS S", "09.125 9.125"},
        {"decimals end at the zone", "2024-03-05 14:07:09.5+01", Type::DateTime, 18, "SS", "09.5"},
        {"a leap second", "2016-12-31 23:59:60", Type::DateTime, 18, "SS", "60"},

        {"single digits", "2024-3-5", Type::Date, 0, "YYYY/MM/DD", "2024/03/05"},
        {"text behind", "2024-03-05 and more", Type::Date, 0, "D", "5"},
        {"blanks before and between", " 2024-03-05 \t 1:2:3", Type::DateTime, 0, "D H", "5 1"},
        {"a year of one digit", "5-01-02", Type::Date, 0, "YYYY YY", "5 5"},
        {"day past the month", "2024-02-31", Type::Date, 0, "M D WD w", "2 31 Saturday 9"},
        {"before the first Monday", "2023-01-01", Type::Date, 0, "ww WD", "00 Sunday"},
        {"no such day", "2024-03-32", Type::Date, 0, "YYYY D", "YYYY D"},
        {"no such hour", "2024-03-05 24:00:00", Type::DateTime, 0, "YYYY p", "YYYY p"},
        {"long year", "12024-03-05", Type::Date, 0, "YYYY", "YYYY"},
        {"another separator", "2024-03-05T14:07:09", Type::DateTime, 0, "YYYY HH", "YYYY HH"},
        {"a date alone is no date-time", "2024-03-05", Type::DateTime, 0, "YYYY", "YYYY"},

        {"a quarter", "2024 Q3", Type::DateTime, 12, "YYYY QQ q", "2024 Q3 3"},
        {"a quarter has no minute", "2024 Q3", Type::Date, 12, "QQ mm MM", "Q3 mm MM"},
        {"quarters begin at one", "2024 Q0", Type::Date, 12, "YYYY QQ", "YYYY QQ"},
        {"a week", "2024 W9", Type::Date, 14, "YYYY WW ww w", "2024 W09 09 9"},
        {"weeks end at 53", "2024 W54", Type::Date, 14, "YYYY w", "YYYY w"},

        {"a time", "14:07:09", Type::Time, 0, "HH:mm:SS h p", "14:07:09 2 PM"},
        {"a time in a text", "on 2024-03-05 at 4:07:09.5", Type::Time, 18, "HH:mm:SS", "04:07:09.5"},
        {"the first time counts", "1:2:x 3:4:5 6:7:8", Type::Time, 18, "H:m:S", "3:4:5"},
        {"a time within a time", "1:2:3:4", Type::Time, 18, "H:m:S", "1:2:3"},
        {"a negative duration", "-5:30:00", Type::Time, 18, "HH H hh h mm p", "-05 -5 -05 -5 30 AM"},
        {"two dashes", "--5:30:00", Type::Time, 18, "HH", "-05"},
        {"a long duration", "125:03:04", Type::Time, 18, "HH hh", "125 113"},
        {"minutes past the hour", "1:99:99", Type::Time, 18, "mm SS", "99 99"},
        {"beyond int", "99999999999:0:0", Type::Time, 18, "H", "2147483647"},
        {"hours and minutes", "7:5:3", Type::Time, 17, "HH:mm:SS", "07:05:SS"},
        {"hours alone", "5", Type::Time, 25, "HH:mm p", "05:mm AM"},
        {"minutes alone", " +90", Type::Time, 26, "HH mm", "HH 90"},
        {"seconds alone, with decimals", "5.25", Type::Time, 27, "SS mm", "05.25 mm"},
        {"all three where one would do", "1:02:03", Type::Time, 26, "HH mm SS", "01 02 03"},
        {"an hour that is the whole value", "13", Type::Time, 17, "HH p", "HH PM"},
        {"of a date as well", " 11 ", Type::Date, 16, "HH p YYYY", "HH AM YYYY"},
        {"and of a moment", "-13", Type::DateTime, 25, "HH p", "HH AM"},
        {"beyond int too", "99999999999", Type::DateTime, 18, "p", "PM"},
        {"no hour beside other text", "13 h", Type::Time, 18, "p", "p"},
        {"no hour in a date", "2024-03-05", Type::Date, 16, "p D", "p 5"},
        {"no hour at other levels", "13", Type::Date, 15, "p", "p"},
        {"a time has no date", "14:07:09", Type::Time, 18, "YYYY M WD w D", "YYYY M WD w D"},
    };
    for (const auto& [name, value, type, level, pattern, expected] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(format(pattern, value, type, Level{level}), expected);
    }
}

TEST(KXDateTimeText, WeekdaysAndWeeksOfEveryDay)
{
    static const char* const names[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    int weekday = 6; // 1 January 2000 is a Saturday
    for (int year = 2000; year <= 2030; ++year) {
        int week = 0;
        for (int month = 1; month <= 12; ++month) {
            const bool leap = year % 4 == 0;
            const int days = month == 2 ? 28 + leap : 30 + (month + month / 8) % 2;
            for (int day = 1; day <= days; ++day, weekday = (weekday + 1) % 7) {
                if (weekday == 1)
                    ++week;
                const std::string date = std::to_string(year) + "-" + std::to_string(month) + "-" +
                                         std::to_string(day);
                ASSERT_EQ(format("Wd w", date, Type::Date, {}), names[weekday] + (" " + std::to_string(week)))
                    << date;
            }
        }
    }
}

TEST(KXDateTimeText, ReplacesTokenAfterToken)
{
    const Value values[] = {
        {"2024-12-04 00:05:09.875", Type::DateTime, 18, "YMawDHmSp"},
        {"2024-09-01 23:59:59", Type::DateTime, 20, "YMaHmS"},
        {"2024-01-03", Type::Date, 0, "YMawD"},
        {"5-05-13", Type::Date, 13, "YMaD"},
        {"2024 Q4", Type::Date, 12, "YQ"},
        {"2024 W7", Type::DateTime, 14, "Yw"},
        {"-7:08:09.1", Type::Time, 0, "HmSp"},
        {"12", Type::Time, 25, "Hp"},
        {"nothing", Type::DateTime, 0, ""},
    };
    std::mt19937 random(1904);
    const std::string letters = "YQqMCJWDdwhHmSp -";
    for (int i = 0; i < 10000; ++i) {
        std::string pattern;
        for (std::size_t pieces = 1 + random() % 8; pieces > 0; --pieces) {
            if (random() % 3 == 0)
                pattern += tokens[random() % tokens.size()].name;
            else
                pattern.append(1 + random() % 3, letters[random() % letters.size()]);
        }
        // One format for both: what it remembers of the first must not show in the second.
        KXChartDataFormat made;
        made.setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
        made.setCustomDateTimeFormat(pattern);
        for (int turn = 0; turn < 2; ++turn) {
            const Value& value = values[random() % std::size(values)];
            ASSERT_EQ(made.formatDateTime(value.text, value.type, Level{value.level}),
                      replaceAll(pattern, value))
                << pattern << " of " << value.text;
        }
    }
}

TEST(KXDateTimeText, EndsForHugeAndHostileTexts)
{
    const std::size_t mebibyte = 1 << 20;
    const auto repeat = [](const std::string& piece, std::size_t size) {
        std::string text;
        while (text.size() < size)
            text += piece;
        return text;
    };
    for (const char* piece : {"0", "-", "9:", "1:2:", "-1:-", ".", "Q", " ", "\xff"}) {
        SCOPED_TRACE(piece);
        const std::string value = repeat(piece, mebibyte);
        for (const Type type : {Type::Date, Type::Time, Type::DateTime})
            for (const int level : {0, 12, 25})
                EXPECT_LE(format("YYYY QQ w HH p", value, type, Level{level}).size(), 40u);
    }
    const std::string moment = "2024-09-04 14:07:09";
    const std::string digits(mebibyte, '7');
    EXPECT_EQ(format("S", moment + "." + digits, Type::DateTime, {}), "9." + digits);
    const std::string bounded = format(repeat("S", mebibyte), moment + "." + digits, Type::DateTime, {});
    EXPECT_LE(bounded.size(), 16 * mebibyte);
    EXPECT_EQ(bounded.back(), 'S');
    const std::string nul(1, '\0');
    EXPECT_EQ(format(nul + "D" + nul, "2024-03-05" + nul, Type::Date, {}), nul + "5" + nul);
    EXPECT_EQ(format("D", nul + "2024-03-05", Type::Date, {}), "D");
}
