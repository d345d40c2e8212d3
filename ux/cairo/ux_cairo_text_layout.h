#pragma once

#include "ux/cairo/ux_cairo_types.h"
#include "ux/ux_double_size.h"
#include "ux/ux_font.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"

#include <cstddef>
#include <string>
#include <vector>

struct _cairo_scaled_font;

/** A text that has been broken into lines and shaped: glyphs in their places, ready to be drawn anywhere. */
class UXCairoTextLayout {
public:
    /**
     * @param text UTF-8; broken bytes become replacement characters, and what is beyond a bound that no
     * picture can show is left out
     * @param widthLimit in logical units; below 0 for none
     */
    UXCairoTextLayout(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                      double widthLimit);
    ~UXCairoTextLayout();

    UXCairoTextLayout(const UXCairoTextLayout&) = delete;
    UXCairoTextLayout& operator=(const UXCairoTextLayout&) = delete;

    /** @return width of the widest line and height of all lines, in logical units */
    UXDoubleSize getSize() const { return m_size; }

    std::size_t getGlyphCount() const { return m_glyphs.size(); }

    /**
     * Draws with the context's source and leaves its path as it was.
     * @param top of the first line
     * @param width that the lines are aligned in, from left
     * @param asOutlines fills the outlines of the glyphs, for glyphs too large to be kept as pixels
     */
    void draw(UXCairoContext* context, double left, double top, double width, UXTextAlign align,
              bool asOutlines) const;

private:
    struct Glyph {
        unsigned long index;
        double x, y; // from the left end of its line's baseline
    };
    struct Run {
        _cairo_scaled_font* font; // a reference of our own
        std::size_t begin, end;   // of its glyphs
    };
    struct Line {
        double width;
        std::size_t begin, end; // of its runs
    };

    std::vector<Glyph> m_glyphs;
    std::vector<Run> m_runs;
    std::vector<Line> m_lines;
    UXDoubleSize m_size;
    double m_ascent = 0, m_lineHeight = 0;
};
