#include "ux/ux_string.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

} // namespace

std::string uxToString(int value) { return std::to_string(value); }

std::string uxToString(const char* text) { return text ? text : ""; }

std::string uxDoubleToString(double value, int decimals)
{
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value < 0 ? "-inf" : "inf";

    constexpr int maximumDecimals = 100;
    // The largest number's digits, the sign and the point.
    char digits[std::numeric_limits<double>::max_exponent10 + maximumDecimals + 3];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed,
                                   std::clamp(decimals, 0, maximumDecimals))
                         .ptr;
    const bool isNegativeZero = digits[0] == '-' &&
                                std::all_of(digits + 1, end, [](char c) { return c == '0' || c == '.'; });
    return {digits + isNegativeZero, end};
}

std::string uxReplaceString(std::string_view text, std::string_view from, std::string_view to)
{
    if (from.empty())
        return std::string(text);
    std::string replaced;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(from, start)) != std::string_view::npos;) {
        replaced.append(text, start, found - start).append(to);
        start = found + from.size();
    }
    return replaced.append(text, start);
}

bool uxEqualStrings(std::string_view a, std::string_view b, bool caseSensitive)
{
    if (caseSensitive)
        return a == b;
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

bool uxEqualStringsCS(std::string_view a, std::string_view b) { return a == b; }

int uxCompareStringsCS(std::string_view a, std::string_view b)
{
    const int order = a.compare(b);
    return (order > 0) - (order < 0);
}

bool uxEmptyString(const char* text) { return !text || *text == '\0'; }
