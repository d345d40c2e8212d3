#include "ux/ux_text_bound.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t longestText = 16384, longestName = 256;
constexpr std::size_t longestInUnits = std::size_t{1} << 20; // were every letter as wide as it is high

/** @return as much of the text as maximum allows, without the bytes of a character that would be cut */
std::string_view bound(std::string_view text, std::size_t maximum)
{
    if (text.size() <= maximum)
        return text;
    std::size_t end = maximum;
    while (end > 0 && maximum - end < 3 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return text.substr(0, end);
}

} // namespace

std::string_view uxBoundDrawnText(std::string_view text, int fontSize)
{
    const auto size = static_cast<std::size_t>((std::max)(fontSize, 1));
    return bound(text, (std::min)(longestText, longestInUnits / size));
}

std::string_view uxBoundFamilyName(std::string_view name) { return bound(name, longestName); }
