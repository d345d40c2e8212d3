#include "kx_date_time_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t maximumSize = std::size_t{16} << 20;

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

using Fields = KXDateTimeFields;

const MonthName& monthName(int month) { return monthNames[month - 1]; }
const WeekdayName& weekdayName(int weekday) { return weekdayNames[weekday]; }

void appendInteger(std::string& text, int value) { text += std::to_string(value); }

void appendTwoDigits(std::string& text, int value)
{
    if (value >= 0 && value <= 9)
        text += '0';
    appendInteger(text, value);
}

void appendTwoDigitHour(std::string& text, int value)
{
    if (value < 0 && value >= -9) {
        text += '-';
        value = -value;
    }
    appendTwoDigits(text, value);
}

void appendLastTwoDigits(std::string& text, int value)
{
    const std::string digits = std::to_string(value);
    text.append(digits, digits.size() - (std::min)(digits.size(), std::size_t{2}));
}

/** Noon stays 12 and midnight 0. */
int hourOfHalfDay(int hour) { return hour >= 13 ? hour - 12 : hour; }

struct Token {
    constexpr Token(std::string_view tokenName, int Fields::*tokenField,
                    void (*appendValue)(std::string& text, int value))
        : name(tokenName), field(tokenField), append(appendValue)
    {
        while (firstLetters < name.size() && name[firstLetters] == name[0])
            ++firstLetters;
    }

    std::string_view name;
    int Fields::*field; // while it is absent, the token stays
    void (*append)(std::string& text, int value);
    std::size_t firstLetters = 0; // how many of its first letter it begins with
};

// In the order in which they are replaced: longer ones before what they begin with.
constexpr Token tokens[] = {
    {"YYYY", &Fields::year, appendInteger},
    {"YY", &Fields::year, appendLastTwoDigits},
    {"QQ", &Fields::quarter, [](std::string& text, int value) { appendInteger(text += 'Q', value); }},
    {"q", &Fields::quarter, appendInteger},
    {"MMMMM", &Fields::month, [](std::string& text, int value) { text += monthName(value).english[0]; }},
    {"MMMMC", &Fields::month,
     [](std::string& text, int value) { (text += monthName(value).chinese) += "月"; }},
    {"MMMMJ", &Fields::month, [](std::string& text, int value) { (text += std::to_string(value)) += "月"; }},
    {"MMMM", &Fields::month, [](std::string& text, int value) { text += monthName(value).english; }},
    {"MMM", &Fields::month, [](std::string& text, int value) { text += monthName(value).abbreviation; }},
    {"MM", &Fields::month, appendTwoDigits},
    {"MC", &Fields::month, [](std::string& text, int value) { text += monthName(value).chinese; }},
    {"MJ", &Fields::month, appendInteger},
    {"M", &Fields::month, appendInteger},
    {"WDC", &Fields::weekday,
     [](std::string& text, int value) { (text += "星期") += weekdayName(value).chinese; }},
    {"WDJ", &Fields::weekday,
     [](std::string& text, int value) { (text += weekdayName(value).japanese) += "曜日"; }},
    {"WD", &Fields::weekday, [](std::string& text, int value) { text += weekdayName(value).english; }},
    {"Wd", &Fields::weekday, [](std::string& text, int value) { text += weekdayName(value).abbreviation; }},
    {"wdC", &Fields::weekday, [](std::string& text, int value) { text += weekdayName(value).chinese; }},
    {"wdJ", &Fields::weekday, [](std::string& text, int value) { text += weekdayName(value).japanese; }},
    {"wd", &Fields::weekday, [](std::string& text, int value) { text += weekdayName(value).english[0]; }},
    {"ww", &Fields::week, appendTwoDigits},
    {"w", &Fields::week, appendInteger},
    {"WW", &Fields::week, [](std::string& text, int value) { appendTwoDigits(text += 'W', value); }},
    {"DD", &Fields::day, appendTwoDigits},
    {"D", &Fields::day, appendInteger},
    {"hh", &Fields::hour,
     [](std::string& text, int value) { appendTwoDigitHour(text, hourOfHalfDay(value)); }},
    {"h", &Fields::hour, [](std::string& text, int value) { appendInteger(text, hourOfHalfDay(value)); }},
    {"HH", &Fields::hour, appendTwoDigitHour},
    {"H", &Fields::hour, appendInteger},
    {"mm", &Fields::minute, appendTwoDigits},
    {"m", &Fields::minute, appendInteger},
    {"SS", &Fields::second, appendTwoDigits},
    {"S", &Fields::second, appendInteger},
    {"p", &Fields::halfDayHour, [](std::string& text, int value) { text += value < 12 ? "AM" : "PM"; }},
};

void appendReplacement(std::string& text, const Token& token, const Fields& fields)
{
    token.append(text, fields.*token.field);
    if (token.field == &Fields::second && !fields.secondDecimals.empty())
        (text += '.') += fields.secondDecimals;
}

/** A pattern while its tokens are being replaced. It knows of every byte whether a replacement wrote it. */
class TextWithTokens {
public:
    static constexpr std::size_t nowhere = std::string::npos;

    explicit TextWithTokens(std::string pattern) : m_text(std::move(pattern)), m_written(m_text.size(), '\0')
    {
        _count(m_text, 1);
    }

    /** @return where the token stands first, with a first byte that is not written; the bytes behind may be
     */
    std::size_t find(const Token& token)
    {
        // Most tokens are not there, and this tells of most of these.
        if (_counter(token.name.front()) < token.firstLetters)
            return nowhere;
        return _findFrom(token.name, 0);
    }

    /** Replaces the token at the place, which find answered, and wherever else it stands behind. */
    void replaceString(std::string_view token, std::string_view text, std::size_t place)
    {
        if (token.size() == text.size())
            _overwrite(token, text, place);
        else
            _rebuild(token, text, place);
    }

    std::string takeText() { return std::move(m_text); }

private:
    std::size_t _findFrom(std::string_view token, std::size_t start) const
    {
        std::size_t place = m_text.find(token.front(), start);
        while (place != nowhere &&
               (m_written[place] != '\0' || std::string_view(m_text).substr(place, token.size()) != token))
            place = m_text.find(token.front(), place + 1);
        return place;
    }

    void _overwrite(std::string_view token, std::string_view text, std::size_t place)
    {
        for (; place != nowhere; place = _findFrom(token, place + token.size())) {
            text.copy(&m_text[place], text.size());
            std::fill_n(&m_written[place], text.size(), '\1');
            _countReplacement(token, text);
        }
    }

    // One pass for all the places, so that the work grows with the text and not with its square.
    void _rebuild(std::string_view token, std::string_view text, std::size_t place)
    {
        m_rebuiltText.clear();
        m_rebuiltWritten.clear();
        std::size_t copied = 0;
        std::size_t size = m_text.size();
        for (; place != nowhere; place = _findFrom(token, place + token.size())) {
            size = size - token.size() + text.size();
            if (text.size() > token.size() && size > maximumSize)
                break;
            m_rebuiltText.append(m_text, copied, place - copied).append(text);
            m_rebuiltWritten.append(m_written, copied, place - copied).append(text.size(), '\1');
            _countReplacement(token, text);
            copied = place + token.size();
        }
        m_rebuiltText.append(m_text, copied);
        m_rebuiltWritten.append(m_written, copied);
        m_text.swap(m_rebuiltText);
        m_written.swap(m_rebuiltWritten);
    }

    // Bytes that share a counter make it too high at most; letters do not share theirs.
    std::size_t& _counter(char c) { return m_counts[static_cast<unsigned char>(c) % m_counts.size()]; }

    void _count(std::string_view text, int change)
    {
        for (const char c : text)
            _counter(c) += static_cast<std::size_t>(change);
    }

    void _countReplacement(std::string_view token, std::string_view text)
    {
        _count(token, -1);
        _count(text, 1);
    }

    std::string m_text;
    std::string m_written;                       // as long as the text, 1 where a replacement wrote
    std::string m_rebuiltText, m_rebuiltWritten; // kept for their memory
    std::array<std::size_t, 64> m_counts{};      // of the bytes in the text
};

} // namespace

std::string kxObtainDateTimeText(std::string pattern, const KXDateTimeFields& fields)
{
    TextWithTokens text(std::move(pattern));
    std::string replacement;
    for (const Token& token : tokens) {
        if (fields.*token.field == Fields::absent)
            continue;
        const std::size_t place = text.find(token);
        if (place == TextWithTokens::nowhere)
            continue;
        replacement.clear();
        appendReplacement(replacement, token, fields);
        text.replaceString(token.name, replacement, place);
    }
    return text.takeText();
}
