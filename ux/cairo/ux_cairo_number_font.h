#pragma once

#include "ux/cairo/ux_cairo_handles.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

/**
 * How a font writes numbers: the glyph of each digit and sign, and how far it is from there to the next one.
 * It learns both from numbers that were shaped, and then places others without shaping. A font in which a
 * letter's glyph depends on more than the letter after it, or in which it depends on that one by more than
 * its distance, places none.
 */
class UXCairoNumberFont {
public:
    /** A glyph with its distance to the next one, in Pango's units. */
    struct Letter {
        unsigned long glyph;
        int advance;
    };

    UXCairoNumberFont() { m_glyphs.fill(kNoGlyph); }

    /** @return whether text is short and made of digits, of signs beside them and of spaces alone */
    static bool isNumber(std::string_view text);

    /**
     * @param text a number
     * @param letters one for each of its letters, as they were shaped; fewer where they were not plain ones
     * @param font that they were shaped in
     */
    void learn(std::string_view text, const std::vector<Letter>& letters, _cairo_scaled_font* font);

    /** @param text a number
     *  @return one entry a letter, valid until the next call; none where it has to be shaped */
    const std::vector<Letter>& write(std::string_view text);

    /** @return what the letters are of; null before any was learned */
    _cairo_scaled_font* getFont() const { return m_font.get(); }

private:
    static constexpr std::size_t kLetterCount = 16;
    static constexpr std::uint32_t kNoGlyph = UINT32_MAX;

    /** The letter before another one, or before the end. */
    struct Place {
        std::uint32_t glyph = kNoGlyph;
        int advance = 0;
    };

    static std::size_t _obtainIndex(char letter);
    Place& _obtainPlace(std::string_view text, std::size_t position);

    std::array<std::array<Place, kLetterCount + 1>, kLetterCount> m_places;
    std::array<std::uint32_t, kLetterCount> m_glyphs; // kNoGlyph for one that was not learned
    UXCairoScaledFontHandle m_font;
    bool m_isPlain = true;
    std::vector<Letter> m_written;
};
