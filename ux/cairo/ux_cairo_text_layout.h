#pragma once

#include "ux/cairo/ux_cairo_handles.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_size.h"
#include "ux/ux_font.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"
#include "ux/ux_transform.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class UXCairoNumberFont;
class UXCairoPixels;

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

    /** @return width of the widest line and height of all lines, in logical units */
    UXDoubleSize getSize() const { return m_size; }

    /** @return how much memory it takes now; drawing it on another device may add to that */
    std::size_t getBytes() const;

    /**
     * Draws with the context's source and leaves its path as it was. Text too small to be seen, or too large
     * or too far away for Cairo to count its pixels, is left out.
     * @param pixels of what context draws on, null where they cannot be written past it
     * @param toDevice from the context's present space to device pixels, of which ground is the part that
     * does not belong to the context's transform
     * @param top of the first line
     * @param width that the lines are aligned in, from left
     */
    void draw(UXCairoContext* context, UXCairoPixels* pixels, const UXTransform& toDevice,
              const UXTransform& ground, double left, double top, double width, UXTextAlign align) const;

private:
    struct Glyph {
        unsigned long index;
        double x, y; // from the left end of its line's baseline
    };
    struct Run {
        UXCairoScaledFontHandle font;
        std::size_t begin, end; // of its glyphs
    };
    /** The pixels of a whole line, from the pixel that the left end of its baseline lies in. */
    struct LinePixels {
        int left = 0, top = 0, width = 0, height = 0; // 0 by 0 where the line covers no pixel
        std::size_t rowLength = 0;                    // a multiple of 4, as Cairo has it
        std::vector<std::uint8_t> coverage;
    };
    struct Line {
        double width;
        std::size_t begin, end; // of its runs
    };
    /** All lines for devices that turn and scale the text like this. */
    struct Rendering {
        UXTransform transform; // its linear part
        std::vector<LinePixels> lines;
        std::size_t bytes;
    };

    bool _writeNumber(std::string_view text, UXCairoNumberFont& numbers);
    void _keepLine(const void* pangoLine);
    LinePixels _renderLine(const Line& line, const UXTransform& toDevice) const;
    const Rendering& _obtainRendering(const UXTransform& toDevice) const;
    static void _drawPixels(UXCairoContext* context, UXCairoPixels* pixels, const UXTransform& toDevice,
                            const UXTransform& ground, const LinePixels& line, const UXDoublePoint& start);
    void _drawGlyphs(UXCairoContext* context, const Line& line, const UXDoublePoint& start,
                     bool asOutlines) const;

    std::vector<Glyph> m_glyphs;
    std::vector<Run> m_runs;
    std::vector<Line> m_lines;
    mutable std::vector<Rendering> m_renderings; // made when they are drawn, the latest first
    UXDoubleSize m_size;
    int m_fontSize = 0;
    double m_ascent = 0, m_lineHeight = 0;
};
