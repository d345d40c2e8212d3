#include "ux/ux_utf8.h"

namespace {

constexpr char32_t replacement = 0xFFFD;

/** What a first byte says of its character: how many bytes follow, its own bits, the least that needs so
 * many. */
struct Lead {
    int following;
    char32_t bits;
    char32_t least;
};

Lead readLead(unsigned char byte)
{
    if (byte >= 0xC2 && byte <= 0xDF)
        return {1, byte & 0x1FU, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {2, byte & 0x0FU, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {3, byte & 0x07U, 0x10000};
    return {0, byte < 0x80 ? byte : replacement, 0};
}

} // namespace

char32_t uxDecodeUtf8(std::string_view text, std::size_t& position)
{
    const std::size_t start = position++;
    const Lead lead = readLead(static_cast<unsigned char>(text[start]));
    char32_t character = lead.bits;
    for (int i = 1; i <= lead.following; ++i) {
        const std::size_t at = start + static_cast<std::size_t>(i);
        if (at >= text.size() || (static_cast<unsigned char>(text[at]) & 0xC0U) != 0x80U)
            return replacement;
        character = (character << 6) | (static_cast<unsigned char>(text[at]) & 0x3FU);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < lead.least || isSurrogate || character > 0x10FFFF)
        return replacement;
    position = start + 1 + static_cast<std::size_t>(lead.following);
    return character;
}
