#include "ux/ux_approximate_text_measurer.h"

#include "ux/ux_drawn_lines.h"
#include "ux/ux_text_lines.h"
#include "ux/ux_utf8.h"

#include <string_view>

namespace {

// All in shares of the font size, near the middle of common sans serifs.
constexpr double lineHeight = 1.17;
constexpr double boldFactor = 1.05;

bool isMark(char32_t c)
{
    return (c >= 0x300 && c <= 0x36F) || (c >= 0x200B && c <= 0x200F) || (c >= 0x202A && c <= 0x202E) ||
           (c >= 0x2060 && c <= 0x2064) || (c >= 0x20D0 && c <= 0x20FF) || (c >= 0xFE00 && c <= 0xFE0F) ||
           c == 0xFEFF;
}

double advanceOfAscii(char c)
{
    const auto isIn = [c](std::string_view set) { return set.find(c) != std::string_view::npos; };
    if (c == '\t')
        return 1.04;
    if (c < ' ' || c == '\x7F')
        return 0;
    if (isIn(" ijl|!.,:;'I"))
        return 0.26;
    if (isIn("frt()[]{}/\\-`\"*"))
        return 0.35;
    if (isIn("mwMW%@"))
        return 0.87;
    if (c >= 'A' && c <= 'Z')
        return 0.65;
    return c >= 'a' && c <= 'z' ? 0.54 : 0.56;
}

double advanceOf(char32_t c)
{
    if (c < 0x80)
        return advanceOfAscii(static_cast<char>(c));
    if (isMark(c))
        return 0;
    return uxIsWideCharacter(c) ? 1.0 : 0.56;
}

double advanceOf(std::string_view text)
{
    double sum = 0;
    for (std::size_t at = 0; at < text.size();)
        sum += advanceOf(uxDecodeUtf8(text, at));
    return sum;
}

} // namespace

UXDoubleSize UXApproximateTextMeasurer::measureText(const std::string& text, const UXFont& font,
                                                    UXTextOption option, int lineMode, double widthLimit)
{
    if (text.empty() || font.size <= 0)
        return {};
    const double em = font.bold ? font.size * boldFactor : font.size;
    const auto widthOf = [em](std::string_view piece) { return advanceOf(piece) * em; };
    return uxMeasureTextLines(text, option, lineMode, widthLimit, lineHeight * font.size, widthOf);
}
