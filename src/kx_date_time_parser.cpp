#include "kx_date_time_parser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <limits>
#include <optional>
#include <system_error>

namespace {

using Level = KXChartAggregateType;

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::size_t findDigit(std::string_view text, std::size_t start)
{
    while (start < text.size() && !isDigit(text[start]))
        ++start;
    return start;
}

std::size_t skipDigits(std::string_view text, std::size_t start)
{
    while (start < text.size() && isDigit(text[start]))
        ++start;
    return start;
}

void skipBlanks(std::string_view& text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
}

/** @return the number at the start of the text, at its limit where int has an end and never absent; nothing
 * when there is none */
std::optional<int> readInteger(std::string_view text)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    constexpr int limit = (std::numeric_limits<int>::max)();
    if (error == std::errc::result_out_of_range)
        return text.front() == '-' ? -limit : limit;
    return (std::max)(value, -limit);
}

/** The same for a whole value: blanks and a plus sign may come first, anything behind. */
std::optional<int> readWholeInteger(std::string_view text)
{
    skipBlanks(text);
    if (text.size() > 1 && text.front() == '+' && isDigit(text[1]))
        text.remove_prefix(1);
    return readInteger(text);
}

/** A percent sign and the letter in a date's pattern. */
struct Conversion {
    char letter;
    std::size_t digits; // at most
    int low, high;
    int KXDateTimeFields::*field;
};

constexpr Conversion conversions[] = {
    {'Y', 4, 0, 9999, &KXDateTimeFields::year}, {'m', 2, 1, 12, &KXDateTimeFields::month},
    {'d', 2, 1, 31, &KXDateTimeFields::day},    {'H', 2, 0, 23, &KXDateTimeFields::hour},
    {'M', 2, 0, 59, &KXDateTimeFields::minute}, {'S', 2, 0, 60, &KXDateTimeFields::second}, // leap second
    {'q', 1, 1, 4, &KXDateTimeFields::quarter}, {'W', 2, 0, 53, &KXDateTimeFields::week},
};

bool readConversion(std::string_view& text, char letter, KXDateTimeFields& fields)
{
    const auto* conversion = std::find_if(std::begin(conversions), std::end(conversions),
                                          [&](const Conversion& c) { return c.letter == letter; });
    std::size_t length = 0;
    int value = 0;
    while (length < (std::min)(conversion->digits, text.size()) && isDigit(text[length]))
        value = value * 10 + (text[length++] - '0');
    if (length == 0 || value < conversion->low || value > conversion->high)
        return false;
    fields.*conversion->field = value;
    text.remove_prefix(length);
    return true;
}

/** @param pattern conversions and literal characters, a blank for any number of blanks
 *  @return the fields of a text that begins as the pattern says, no field for any other text */
KXDateTimeFields readPattern(std::string_view text, std::string_view pattern)
{
    KXDateTimeFields fields;
    skipBlanks(text);
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%') {
            if (!readConversion(text, pattern[++i], fields))
                return {};
        } else if (pattern[i] == ' ') {
            skipBlanks(text);
        } else {
            if (text.empty() || text.front() != pattern[i])
                return {};
            text.remove_prefix(1);
        }
    }
    return fields;
}

/** @return the digits behind the last point of the text, which is cut off there */
std::string_view extractDecimalsForSecond(std::string_view& text)
{
    const std::size_t point = text.rfind('.');
    if (point == std::string_view::npos)
        return {};
    const std::string_view decimals = text.substr(point + 1, skipDigits(text, point + 1) - point - 1);
    text = text.substr(0, point);
    return decimals;
}

/** Searches for the first place in the text with count numbers, colons between and perhaps a minus sign
 * before. What begins within a run of digits ends like what begins with the run, so each run is tried once.
 */
bool searchNumbers(std::string_view text, std::size_t count, std::array<int, 3>& numbers)
{
    for (std::size_t run = findDigit(text, 0); run < text.size();) {
        std::size_t begin = run > 0 && text[run - 1] == '-' ? run - 1 : run;
        std::size_t end = skipDigits(text, run);
        const std::size_t next = end;
        for (std::size_t i = 0;; end = skipDigits(text, begin)) {
            numbers[i] = readInteger(text.substr(begin, end - begin)).value_or(0);
            if (++i == count)
                return true;
            if (end + 1 >= text.size() || text[end] != ':' || !isDigit(text[end + 1]))
                break;
            begin = end + 1;
        }
        run = findDigit(text, next);
    }
    return false;
}

/** Fills in what the level shows of a time: the hours, the hours and minutes, or all three. A text without
 * them is one number where the level is of hours, minutes or seconds alone. */
void parseTimeFormat(std::string_view text, Level level, int& hours, int& minutes, int& seconds)
{
    const bool alone = level == Level::HoursAlone || level == Level::MinutesAlone ||
                       level == Level::SecondsAlone;
    const std::size_t count = level == Level::Hour              ? 1
                              : level == Level::Minute          ? 2
                              : level == Level::Second || alone ? 3
                                                                : 0;
    if (count == 0)
        return;
    std::array<int, 3> numbers{};
    if (searchNumbers(text, count, numbers)) {
        int* const fields[] = {&hours, &minutes, &seconds};
        for (std::size_t i = 0; i < count; ++i)
            *fields[i] = numbers[i];
    } else if (alone) {
        int& field = level == Level::HoursAlone ? hours : level == Level::MinutesAlone ? minutes : seconds;
        field = readWholeInteger(text).value_or(KXDateTimeFields::absent);
    }
}

/** Fills in the weekday and the week of a date. The day may be past the end of its month: 31 February is a
 * day in March here, in the same year always. */
void fillCalendarFields(KXDateTimeFields& fields)
{
    using namespace std::chrono;
    const sys_days newYear(year(fields.year) / January / 1);
    const sys_days date = sys_days(year(fields.year) / month(static_cast<unsigned>(fields.month)) / 1) +
                          days(fields.day - 1);
    fields.weekday = static_cast<int>(weekday(date).c_encoding());
    const int dayOfYear = static_cast<int>((date - newYear).count());
    const int daysSinceMonday = (fields.weekday + 6) % 7;
    fields.week = (dayOfYear + 7 - daysSinceMonday) / 7;
}

/** The level is of a day or of a part of it. */
bool isDayOrShorter(Level level)
{
    return level == Level::Day || level == Level::Hour || level == Level::Minute || level == Level::Second;
}

bool showsHalfDay(Level level)
{
    return level == Level::Hour || level == Level::Minute || level == Level::Second ||
           level == Level::HoursAlone;
}

KXDateTimeFields parseTime(std::string_view text, Level level)
{
    KXDateTimeFields fields;
    const std::string_view decimals = extractDecimalsForSecond(text);
    parseTimeFormat(text, level, fields.hour, fields.minute, fields.second);
    fields.secondDecimals = decimals;
    if (showsHalfDay(level))
        fields.halfDayHour = fields.hour != KXDateTimeFields::absent
                                 ? fields.hour
                                 : readWholeInteger(text).value_or(KXDateTimeFields::absent);
    return fields;
}

KXDateTimeFields parseDate(std::string_view text, bool timed, Level level)
{
    const std::string_view decimals = timed ? extractDecimalsForSecond(text) : std::string_view();
    KXDateTimeFields fields = readPattern(text, timed ? "%Y-%m-%d %H:%M:%S" : "%Y-%m-%d");
    if (fields.year == KXDateTimeFields::absent)
        return fields;
    fields.secondDecimals = decimals;
    fillCalendarFields(fields);
    if (!isDayOrShorter(level))
        fields.week = KXDateTimeFields::absent;
    if (level == Level::WithoutDay)
        fields.day = KXDateTimeFields::absent;
    if (showsHalfDay(level))
        fields.halfDayHour = fields.hour;
    return fields;
}

} // namespace

KXDateTimeFields kxParseDateTime(std::string_view value, KXChartDataType type, KXChartAggregateType level)
{
    if (level == Level::None)
        level = type == KXChartDataType::Date ? Level::Day : Level::Second;
    if (type == KXChartDataType::Time)
        return parseTime(value, level);
    if (level == Level::Quarter)
        return readPattern(value, "%Y Q%q");
    if (level == Level::Week)
        return readPattern(value, "%Y W%W");
    return parseDate(value, type == KXChartDataType::DateTime, level);
}
