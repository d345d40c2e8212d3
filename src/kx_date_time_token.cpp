#include "kx_date_time_token.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

namespace {

struct MonthName {
    std::string_view english, abbreviation, chinese;
};

constexpr MonthName monthNames[] = {
    {"January", "Jan", "一"}, {"February", "Feb", "二"},   {"March", "Mar", "三"},
    {"April", "Apr", "四"},   {"May", "May", "五"},        {"June", "Jun", "六"},
    {"July", "Jul", "七"},    {"August", "Aug", "八"},     {"September", "Sep", "九"},
    {"October", "Oct", "十"}, {"November", "Nov", "十一"}, {"December", "Dec", "十二"},
};

struct WeekdayName {
    std::string_view english, abbreviation, chinese, japanese;
};

constexpr WeekdayName weekdayNames[] = {
    {"Sunday", "Sun", "日", "日"},    {"Monday", "Mon", "一", "月"},   {"Tuesday", "Tue", "二", "火"},
    {"Wednesday", "Wed", "三", "水"}, {"Thursday", "Thu", "四", "木"}, {"Friday", "Fri", "五", "金"},
    {"Saturday", "Sat", "六", "土"},
};

constexpr std::string_view monthInitials = "JFMASOND", weekdayInitials = "SMTWF";

using Fields = KXDateTimeFields;

const MonthName& monthName(int month) { return monthNames[month - 1]; }
const WeekdayName& weekdayName(int weekday) { return weekdayNames[weekday]; }

// Each of these writes from to on and answers where it ended.

char* write(char* to, std::string_view text) { return std::copy(text.begin(), text.end(), to); }

char* writeInteger(char* to, int value)
{
    return std::to_chars(to, to + KXDateTimeToken::longest, value).ptr;
}

char* writeTwoDigits(char* to, int value)
{
    if (value < 0 || value > 99)
        return writeInteger(to, value);
    *to++ = static_cast<char>('0' + value / 10);
    *to++ = static_cast<char>('0' + value % 10);
    return to;
}

char* writeTwoDigitHour(char* to, int value)
{
    if (value < 0 && value >= -9) {
        *to++ = '-';
        value = -value;
    }
    return writeTwoDigits(to, value);
}

char* writeLastTwoDigits(char* to, int value)
{
    char digits[KXDateTimeToken::longest];
    const char* const end = writeInteger(digits, value);
    return std::copy(end - (std::min)(end - digits, std::ptrdiff_t{2}), end, to);
}

/** Noon stays 12 and midnight 0. */
int hourOfHalfDay(int hour) { return hour >= 13 ? hour - 12 : hour; }

// In the order in which they are replaced: longer ones before what they begin with.
constexpr KXDateTimeToken tokens[] = {
    {"YYYY", &Fields::year, writeInteger},
    {"YY", &Fields::year, writeLastTwoDigits},
    {"QQ", &Fields::quarter, [](char* to, int value) { return writeInteger(write(to, "Q"), value); }, "Q"},
    {"q", &Fields::quarter, writeInteger},
    {"MMMMM", &Fields::month,
     [](char* to, int value) { return write(to, monthName(value).english.substr(0, 1)); }, monthInitials},
    {"MMMMC", &Fields::month,
     [](char* to, int value) { return write(write(to, monthName(value).chinese), "月"); }},
    {"MMMMJ", &Fields::month, [](char* to, int value) { return write(writeInteger(to, value), "月"); }},
    {"MMMM", &Fields::month, [](char* to, int value) { return write(to, monthName(value).english); },
     monthInitials},
    {"MMM", &Fields::month, [](char* to, int value) { return write(to, monthName(value).abbreviation); },
     monthInitials},
    {"MM", &Fields::month, writeTwoDigits},
    {"MC", &Fields::month, [](char* to, int value) { return write(to, monthName(value).chinese); }},
    {"MJ", &Fields::month, writeInteger},
    {"M", &Fields::month, writeInteger},
    {"WDC", &Fields::weekday,
     [](char* to, int value) { return write(write(to, "星期"), weekdayName(value).chinese); }},
    {"WDJ", &Fields::weekday,
     [](char* to, int value) { return write(write(to, weekdayName(value).japanese), "曜日"); }},
    {"WD", &Fields::weekday, [](char* to, int value) { return write(to, weekdayName(value).english); },
     weekdayInitials},
    {"Wd", &Fields::weekday, [](char* to, int value) { return write(to, weekdayName(value).abbreviation); },
     weekdayInitials},
    {"wdC", &Fields::weekday, [](char* to, int value) { return write(to, weekdayName(value).chinese); }},
    {"wdJ", &Fields::weekday, [](char* to, int value) { return write(to, weekdayName(value).japanese); }},
    {"wd", &Fields::weekday,
     [](char* to, int value) { return write(to, weekdayName(value).english.substr(0, 1)); }, weekdayInitials},
    {"ww", &Fields::week, writeTwoDigits},
    {"w", &Fields::week, writeInteger},
    {"WW", &Fields::week, [](char* to, int value) { return writeTwoDigits(write(to, "W"), value); }, "W"},
    {"DD", &Fields::day, writeTwoDigits},
    {"D", &Fields::day, writeInteger},
    {"hh", &Fields::hour, [](char* to, int value) { return writeTwoDigitHour(to, hourOfHalfDay(value)); }},
    {"h", &Fields::hour, [](char* to, int value) { return writeInteger(to, hourOfHalfDay(value)); }},
    {"HH", &Fields::hour, writeTwoDigitHour},
    {"H", &Fields::hour, writeInteger},
    {"mm", &Fields::minute, writeTwoDigits},
    {"m", &Fields::minute, writeInteger},
    {"SS", &Fields::second, writeTwoDigits},
    {"S", &Fields::second, writeInteger},
    {"p", &Fields::halfDayHour, [](char* to, int value) { return write(to, value < 12 ? "AM" : "PM"); },
     "AP"},
};

} // namespace

std::span<const KXDateTimeToken> kxObtainDateTimeTokens() { return tokens; }

std::size_t kxObtainDateTimeTokenRoom(const KXDateTimeToken& token, const KXDateTimeFields& fields)
{
    return KXDateTimeToken::longest + (token.field == &Fields::second ? 1 + fields.secondDecimals.size() : 0);
}

char* kxWriteDateTimeToken(char* to, const KXDateTimeToken& token, const KXDateTimeFields& fields)
{
    to = token.write(to, fields.*token.field);
    if (token.field == &Fields::second && !fields.secondDecimals.empty())
        to = write(write(to, "."), fields.secondDecimals);
    return to;
}
