#include "ux/svg/ux_svg_text.h"

#include "ux/ux_utf8.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr double largestCoordinate = 1e9;
constexpr double smallestFactor = 1e-9;

std::string formatFactor(double factor)
{
    if (!std::isfinite(factor) || std::abs(factor) < smallestFactor)
        return "0";
    char digits[32];
    const double bounded = std::clamp(factor, -largestCoordinate, largestCoordinate) + 0.0;
    return {digits,
            std::to_chars(digits, digits + sizeof digits, bounded, std::chars_format::general, 9).ptr};
}

/** @return the entity of a character that XML gives a meaning, empty for any other */
std::string_view obtainEntity(char32_t character)
{
    switch (character) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    default:
        return {};
    }
}

bool isForbidden(char32_t character)
{
    return character < 0x20 || character == 0xFFFE || character == 0xFFFF;
}

} // namespace

std::int64_t uxObtainSvgThousandths(double value)
{
    return std::isnan(value) ? 0
                             : std::llround(std::clamp(value, -largestCoordinate, largestCoordinate) * 1000);
}

void uxAppendSvgThousandths(std::string& text, std::int64_t thousandths)
{
    char digits[24];
    char* end = std::to_chars(digits, digits + sizeof digits, std::abs(thousandths) / 1000).ptr;
    int fraction = static_cast<int>(std::abs(thousandths) % 1000);
    if (fraction > 0)
        *end++ = '.';
    for (; fraction > 0; fraction = fraction % 100 * 10)
        *end++ = static_cast<char>('0' + fraction / 100);
    if (thousandths < 0)
        text.push_back('-');
    text.append(digits, end);
}

std::string uxFormatSvgNumber(double value)
{
    std::string text;
    uxAppendSvgThousandths(text, uxObtainSvgThousandths(value));
    return text;
}

std::string uxFormatSvgTransform(const UXTransform& transform)
{
    if (transform.isUpright() && transform.xx == 1 && transform.yy == 1)
        return "translate(" + uxFormatSvgNumber(transform.dx) + ' ' + uxFormatSvgNumber(transform.dy) + ')';
    return "matrix(" + formatFactor(transform.xx) + ' ' + formatFactor(transform.yx) + ' ' +
           formatFactor(transform.xy) + ' ' + formatFactor(transform.yy) + ' ' +
           uxFormatSvgNumber(transform.dx) + ' ' + uxFormatSvgNumber(transform.dy) + ')';
}

std::string uxEscapeSvgText(std::string_view text)
{
    constexpr std::string_view replacement = "\xEF\xBF\xBD";
    std::string escaped;
    escaped.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t start = at;
        const char32_t character = uxDecodeUtf8(text, at);
        const std::string_view entity = obtainEntity(character);
        if (character == '\t' || character == '\n' || character == '\r')
            escaped.push_back(' ');
        else if (isForbidden(character) || character == 0xFFFD)
            escaped.append(replacement);
        else
            escaped.append(entity.empty() ? text.substr(start, at - start) : entity);
    }
    return escaped;
}
