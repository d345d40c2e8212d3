#include "ux/ux_text_lines.h"

#include "ux/ux_utf8.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace {

/** A place to break: the line ends before end, the next one starts at next. */
struct Break {
    std::size_t end, next;
};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

/** @return the places between words and wide characters, and the paragraph's end; blanks at its start are no
 * place */
std::vector<Break> obtainWordBreaks(std::string_view paragraph)
{
    std::vector<Break> breaks;
    const auto add = [&](std::size_t end, std::size_t next) {
        if (end > 0 && (breaks.empty() || breaks.back().next != end))
            breaks.push_back({end, next});
    };
    bool wasWide = false;
    for (std::size_t at = 0; at < paragraph.size();) {
        const std::size_t start = at;
        if (isBlank(paragraph[at])) {
            while (at < paragraph.size() && isBlank(paragraph[at]))
                ++at;
            add(start, at);
            wasWide = false;
            continue;
        }
        const bool isWide = uxIsWideCharacter(uxDecodeUtf8(paragraph, at));
        if (isWide || wasWide)
            add(start, start);
        wasWide = isWide;
    }
    add(paragraph.size(), paragraph.size());
    return breaks;
}

/** @return position, or the start of the character that it is inside of */
std::size_t alignToCharacter(std::string_view text, std::size_t position)
{
    const auto isInside = [&](std::size_t at) {
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    std::size_t aligned = position;
    while (isInside(aligned) && aligned > 0 && position - aligned < 3)
        --aligned;
    return isInside(aligned) ? position : aligned;
}

/**
 * Looks ahead in doubling steps and then halves the last one, so that finding the end of a line costs as much
 * as the line is long, however long the text is.
 * @return the largest length up to maximum that fits, 0 where none does
 */
template <class Fits>
std::size_t obtainFittingLength(std::size_t maximum, const Fits& fits)
{
    std::size_t low = 0, high = 1;
    while (high <= maximum && fits(high)) {
        low = high;
        high *= 2;
    }
    high = std::min(high, maximum + 1);
    while (low + 1 < high) {
        const std::size_t middle = low + (high - low) / 2;
        (fits(middle) ? low : high) = middle;
    }
    return low;
}

/** Appends the lines of one paragraph, which holds no line feed. */
void breakParagraph(std::string_view paragraph, double widthLimit, const UXTextWidthFunction& widthOf,
                    std::vector<std::string_view>& lines)
{
    const std::vector<Break> words = obtainWordBreaks(paragraph);
    std::size_t start = 0, word = 0;
    while (start < paragraph.size()) {
        // 1. As many characters as fit, and one where none does.
        const std::size_t fitting = obtainFittingLength(paragraph.size() - start, [&](std::size_t length) {
            const std::size_t end = alignToCharacter(paragraph, start + length);
            return widthOf(paragraph.substr(start, end - start)) <= widthLimit;
        });
        if (start + fitting == paragraph.size())
            break;
        std::size_t reach = start;
        (void)uxDecodeUtf8(paragraph, reach);
        reach = std::max(reach, alignToCharacter(paragraph, start + fitting));

        // 2. Back to the last place between words, unless one word fills the line.
        while (word < words.size() && words[word].end <= reach)
            ++word;
        const bool hasWord = word > 0 && words[word - 1].end > start;
        const Break taken = hasWord ? words[word - 1] : Break{reach, reach};
        lines.push_back(paragraph.substr(start, taken.end - start));
        start = taken.next;
    }

    // 3. What is left fits; nothing is left where the blanks at a break end the paragraph.
    if (start < paragraph.size() || paragraph.empty())
        lines.push_back(paragraph.substr(start));
}

} // namespace

bool uxIsWideCharacter(char32_t character)
{
    // The blocks whose characters are wide or full-width by Unicode's East Asian Width property.
    static constexpr std::pair<char32_t, char32_t> ranges[] = {
        {0x1100, 0x115F},   {0x2E80, 0x303E},   {0x3041, 0x4DBF},   {0x4E00, 0xA4CF}, {0xAC00, 0xD7A3},
        {0xF900, 0xFAFF},   {0xFE30, 0xFE4F},   {0xFF01, 0xFF60},   {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
        {0x1F680, 0x1F6FF}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
    };
    const auto* found = std::upper_bound(
        std::begin(ranges), std::end(ranges), character,
        [](char32_t value, const auto& range) { return value <= range.second; });
    return found != std::end(ranges) && character >= found->first;
}

std::vector<std::string_view> uxBreakTextLines(std::string_view text, double widthLimit,
                                               const UXTextWidthFunction& widthOf)
{
    std::vector<std::string_view> lines;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        std::string_view paragraph = text.substr(start, end - start);
        if (end < text.size() && paragraph.ends_with('\r'))
            paragraph.remove_suffix(1);
        if (widthLimit >= 0)
            breakParagraph(paragraph, widthLimit, widthOf, lines);
        else
            lines.push_back(paragraph);
        start = end + 1;
    }
    return lines;
}
