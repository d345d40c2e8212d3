#include "kx_number_text.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string_view>

namespace {

constexpr int streamDecimals = 6; // what a stream prints for a negative precision
constexpr int maximumDecimals = 10000;

// A double has at most 309 digits before the point and 1074 behind it that are not 0.
constexpr int significantDecimals = std::numeric_limits<double>::digits -
                                    std::numeric_limits<double>::min_exponent;
constexpr int integerDigits = std::numeric_limits<double>::max_exponent10 + 1;
constexpr int bufferSize = 1 + integerDigits + 1 + significantDecimals;

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

void appendGrouped(std::string& text, std::string_view digits, char separator)
{
    constexpr std::size_t groupSize = 3;
    std::size_t end = (digits.size() - 1) % groupSize + 1;
    text += digits.substr(0, end);
    for (; end < digits.size(); end += groupSize) {
        text += separator;
        text += digits.substr(end, groupSize);
    }
}

} // namespace

void kxAppendNumberText(std::string& text, double value, int decimals, const KXNumberPunctuation& punctuation)
{
    // 1. Print every decimal that can be other than 0.
    const int wanted = decimals < 0 ? streamDecimals : (std::min)(decimals, maximumDecimals);
    const int printed = (std::min)(wanted, significantDecimals);
    char buffer[bufferSize];
    const auto end = std::to_chars(buffer, buffer + bufferSize, value, std::chars_format::fixed, printed).ptr;
    std::string_view number(buffer, static_cast<std::size_t>(end - buffer));
    if (!isDigit(number.back())) {
        text += number;
        return;
    }
    if (number.front() == '-') {
        text += '-';
        number.remove_prefix(1);
    }

    // 2. Put the separators in, and the zeros that were not printed behind.
    const std::string_view whole = number.substr(0, number.find('.'));
    if (punctuation.grouped)
        appendGrouped(text, whole, punctuation.thousandsSeparator);
    else
        text += whole;
    if (printed == 0)
        return;
    text += punctuation.decimalPoint;
    text += number.substr(whole.size() + 1);
    text.append(static_cast<std::size_t>(wanted - printed), '0');
}
