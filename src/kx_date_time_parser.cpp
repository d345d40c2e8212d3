#include "kx_date_time_parser.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
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

/** @return whether the text is one whole number, with blanks around it at most */
bool isWholeInteger(std::string_view text)
{
    skipBlanks(text);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    if (text.starts_with('+') || text.starts_with('-'))
        text.remove_prefix(1);
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/** A number in a date, or a literal character. */
struct PatternStep {
    int KXDateTimeFields::*field = nullptr; // null for a literal
    std::size_t digits = 0;                 // at most
    int low = 0, high = 0;
    char literal = 0; // a blank for any number of blanks
};

constexpr PatternStep literal(char c) { return {.literal = c}; }

constexpr PatternStep year{&KXDateTimeFields::year, 4, 0, 9999}, month{&KXDateTimeFields::month, 2, 1, 12},
    day{&KXDateTimeFields::day, 2, 1, 31}, hour{&KXDateTimeFields::hour, 2, 0, 23},
    minute{&KXDateTimeFields::minute, 2, 0, 59}, second{&KXDateTimeFields::second, 2, 0, 60}, // leap second
    quarter{&KXDateTimeFields::quarter, 1, 1, 4}, week{&KXDateTimeFields::week, 2, 0, 53};

constexpr PatternStep datePattern[] = {year, literal('-'), month, literal('-'), day};
constexpr PatternStep dateTimePattern[] = {year, literal('-'), month,  literal('-'), day,   literal(' '),
                                           hour, literal(':'), minute, literal(':'), second};
constexpr PatternStep quarterPattern[] = {year, literal(' '), literal('Q'), quarter};
constexpr PatternStep weekPattern[] = {year, literal(' '), literal('W'), week};

bool readField(std::string_view& text, const PatternStep& step, KXDateTimeFields& fields)
{
    const std::size_t most = (std::min)(step.digits, text.size());
    std::size_t length = 0;
    int value = 0;
    while (length < most && isDigit(text[length]))
        value = value * 10 + (text[length++] - '0');
    if (length == 0 || value < step.low || value > step.high)
        return false;
    fields.*step.field = value;
    text.remove_prefix(length);
    return true;
}

/** @return the fields of a text that begins as the pattern says, no field for any other text */
KXDateTimeFields readPattern(std::string_view text, std::span<const PatternStep> pattern)
{
    KXDateTimeFields fields;
    skipBlanks(text);
    for (const PatternStep& step : pattern) {
        if (step.field) {
            if (!readField(text, step, fields))
                return {};
        } else if (step.literal == ' ') {
            skipBlanks(text);
        } else {
            if (text.empty() || text.front() != step.literal)
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
    using std::chrono::sys_days;
    const std::chrono::year ofDate(fields.year);
    const sys_days newYear(ofDate / std::chrono::January / 1);
    const sys_days date = sys_days(ofDate / fields.month / 1) + std::chrono::days(fields.day - 1);
    fields.weekday = static_cast<int>(std::chrono::weekday(date).c_encoding());
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

/** Fills in the hour that morning and afternoon are told from. A text without an hour is the hour where it is
 * one number and nothing else. */
void fillHalfDayHour(KXDateTimeFields& fields, std::string_view text, Level level)
{
    if (!showsHalfDay(level))
        return;
    fields.halfDayHour = fields.hour;
    if (fields.hour == KXDateTimeFields::absent && isWholeInteger(text))
        fields.halfDayHour = *readWholeInteger(text);
}

KXDateTimeFields parseTime(std::string_view text, Level level)
{
    KXDateTimeFields fields;
    const std::string_view decimals = extractDecimalsForSecond(text);
    parseTimeFormat(text, level, fields.hour, fields.minute, fields.second);
    fields.secondDecimals = decimals;
    fillHalfDayHour(fields, text, level);
    return fields;
}

KXDateTimeFields parseDate(std::string_view text, bool timed, Level level)
{
    const std::string_view decimals = timed ? extractDecimalsForSecond(text) : std::string_view();
    KXDateTimeFields fields = timed ? readPattern(text, dateTimePattern) : readPattern(text, datePattern);
    fillHalfDayHour(fields, text, level);
    if (fields.year == KXDateTimeFields::absent)
        return fields;
    fields.secondDecimals = decimals;
    fillCalendarFields(fields);
    if (!isDayOrShorter(level))
        fields.week = KXDateTimeFields::absent;
    if (level == Level::WithoutDay)
        fields.day = KXDateTimeFields::absent;
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
        return readPattern(value, quarterPattern);
    if (level == Level::Week)
        return readPattern(value, weekPattern);
    return parseDate(value, type == KXChartDataType::DateTime, level);
}
