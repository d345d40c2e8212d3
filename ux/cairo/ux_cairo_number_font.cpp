#include "ux/cairo/ux_cairo_number_font.h"

#include <algorithm>
#include <cairo.h>

namespace {

constexpr std::string_view kLetters = "0123456789,.-+ %";
constexpr std::size_t kLongestNumber = 32;

} // namespace

bool UXCairoNumberFont::isNumber(std::string_view text)
{
    static_assert(kLetters.size() == kLetterCount);
    return !text.empty() && text.size() <= kLongestNumber &&
           std::ranges::all_of(text, [](char c) { return kLetters.find(c) != std::string_view::npos; });
}

std::size_t UXCairoNumberFont::_obtainIndex(char letter) { return kLetters.find(letter); }

UXCairoNumberFont::Place& UXCairoNumberFont::_obtainPlace(std::string_view text, std::size_t position)
{
    const std::size_t after = position + 1 < text.size() ? _obtainIndex(text[position + 1]) : kLetterCount;
    return m_places[_obtainIndex(text[position])][after];
}

void UXCairoNumberFont::learn(std::string_view text, const std::vector<Letter>& letters,
                              _cairo_scaled_font* font)
{
    if (!m_isPlain)
        return;
    m_isPlain = letters.size() == text.size() && (!m_font || m_font.get() == font);
    if (!m_isPlain)
        return;
    if (!m_font)
        m_font.reset(cairo_scaled_font_reference(font));
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto glyph = static_cast<std::uint32_t>(letters[i].glyph);
        std::uint32_t& known = m_glyphs[_obtainIndex(text[i])];
        Place& place = _obtainPlace(text, i);
        if ((known != kNoGlyph && known != glyph) ||
            (place.glyph != kNoGlyph && place.advance != letters[i].advance)) {
            m_isPlain = false;
            return;
        }
        known = glyph;
        place = {glyph, letters[i].advance};
    }
}

const std::vector<UXCairoNumberFont::Letter>& UXCairoNumberFont::write(std::string_view text)
{
    m_written.clear();
    for (std::size_t i = 0; m_isPlain && i < text.size(); ++i) {
        const Place& place = _obtainPlace(text, i);
        if (place.glyph == kNoGlyph) {
            m_written.clear();
            break;
        }
        m_written.push_back({place.glyph, place.advance});
    }
    return m_written;
}
