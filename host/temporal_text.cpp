#include "temporal_text.h"

#include <chrono>

namespace {

/** Takes one number of least to most digits off the front of a text. */
std::optional<int> takeNumber(std::string_view& text, std::size_t least, std::size_t most)
{
    std::size_t digits = 0;
    int number = 0;
    while (digits < most && digits < text.size() && text[digits] >= '0' && text[digits] <= '9')
        number = number * 10 + (text[digits++] - '0');
    if (digits < least)
        return std::nullopt;
    text.remove_prefix(digits);
    return number;
}

bool takeCharacter(std::string_view& text, char character)
{
    if (text.empty() || text.front() != character)
        return false;
    text.remove_prefix(1);
    return true;
}

/** Appends a number of at most that many digits, zeros in front; a table has millions of them. */
void appendNumber(std::string& text, int number, std::size_t digits)
{
    text.append(digits, '0');
    for (std::size_t place = text.size(); number > 0; number /= 10)
        text[--place] = static_cast<char>('0' + number % 10);
}

std::optional<std::string> takeDate(std::string_view& text)
{
    const std::optional<int> year = takeNumber(text, 4, 4);
    const char separator = text.empty() ? '\0' : text.front();
    if (!year || *year < 1 || (separator != '-' && separator != '/'))
        return std::nullopt;
    text.remove_prefix(1);
    const std::optional<int> month = takeNumber(text, 1, 2);
    if (!month || !takeCharacter(text, separator))
        return std::nullopt;
    const std::optional<int> day = takeNumber(text, 1, 2);
    if (!day || !std::chrono::year_month_day(std::chrono::year(*year),
                                             std::chrono::month(static_cast<unsigned>(*month)),
                                             std::chrono::day(static_cast<unsigned>(*day)))
                     .ok())
        return std::nullopt;

    std::string date;
    appendNumber(date, *year, 4);
    date += '-';
    appendNumber(date, *month, 2);
    date += '-';
    appendNumber(date, *day, 2);
    return date;
}

std::optional<std::string> takeTime(std::string_view& text)
{
    const std::optional<int> hour = takeNumber(text, 1, 2);
    if (!hour || *hour > 23 || !takeCharacter(text, ':'))
        return std::nullopt;
    const std::optional<int> minute = takeNumber(text, 2, 2);
    if (!minute || *minute > 59)
        return std::nullopt;
    const bool hasSecond = takeCharacter(text, ':');
    const std::optional<int> second = hasSecond ? takeNumber(text, 2, 2) : 0;
    if (!second || *second > 59)
        return std::nullopt;

    std::string time;
    appendNumber(time, *hour, 2);
    time += ':';
    appendNumber(time, *minute, 2);
    time += ':';
    appendNumber(time, *second, 2);
    if (hasSecond && takeCharacter(text, '.')) {
        const std::size_t digits = text.find_first_not_of("0123456789");
        const std::string_view fraction = text.substr(0, digits);
        if (fraction.empty())
            return std::nullopt;
        time.append(".").append(fraction);
        text.remove_prefix(fraction.size());
    }
    return time;
}

/** @return taken when nothing of the text is left over */
std::optional<std::string> requireEnd(std::optional<std::string> taken, std::string_view rest)
{
    return rest.empty() ? std::move(taken) : std::nullopt;
}

} // namespace

std::optional<std::string> obtainDateText(std::string_view text)
{
    std::optional<std::string> date = takeDate(text);
    return requireEnd(std::move(date), text);
}

std::optional<std::string> obtainTimeText(std::string_view text)
{
    std::optional<std::string> time = takeTime(text);
    return requireEnd(std::move(time), text);
}

std::optional<std::string> obtainDateTimeText(std::string_view text)
{
    const std::optional<std::string> date = takeDate(text);
    if (!date)
        return std::nullopt;
    if (text.empty())
        return *date + " 00:00:00";

    const std::size_t start = text.find_first_not_of(' ');
    if (start == 0 && text.front() != 'T' && text.front() != 't')
        return std::nullopt;
    text.remove_prefix(start == 0 ? 1 : std::min(start, text.size()));
    const std::optional<std::string> time = takeTime(text);
    if (!takeCharacter(text, 'Z'))
        takeCharacter(text, 'z');
    return time ? requireEnd(*date + ' ' + *time, text) : std::nullopt;
}
