#pragma once

#include "ux/cairo/ux_cairo_handles.h"
#include "ux/ux_transform.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <unordered_map>
#include <utility>
#include <vector>

/** The pixels of one glyph: how much of each is covered, from 0 to 255. */
struct UXCairoGlyphPixels {
    int left = 0, top = 0; // of the first pixel, from the pixel that the glyph's origin lies in
    int width = 0, height = 0;
    std::size_t rowLength = 0;          // a multiple of 8, so that eight pixels are added at once
    std::vector<std::uint8_t> coverage; // rowLength x height, rows from the top, 0 beyond the width
};

/**
 * Keeps the pixels of glyphs at quarters of a pixel. Cairo itself puts every glyph on a whole pixel, which
 * tears the letters of small text apart. Bounded: when it is full and asked to, it starts anew.
 */
class UXCairoGlyphCache {
public:
    static constexpr int kPhases = 4; // of a pixel, each way

    /** The glyphs of one font for devices that turn and scale it alike. */
    struct Face {
        UXCairoScaledFontHandle font; // keeps the pointer in the key from being given to another font
        UXTransform toDevice;
        std::unordered_map<std::uint64_t, UXCairoGlyphPixels> glyphs;
    };

    static UXCairoGlyphCache& obtainShared();

    /** Before a line is drawn: what is answered for it stays valid until the next call. */
    void makeRoom();

    /** @param toDevice only its linear part counts
     *  @return this object's, valid until makeRoom */
    Face& obtainFace(_cairo_scaled_font* font, const UXTransform& toDevice);

    /**
     * @param phaseX quarters of a pixel that the glyph's origin is right of a whole pixel, 0 to 3; phaseY
     * below it
     * @return this object's, valid until makeRoom
     */
    const UXCairoGlyphPixels& obtainPixels(Face& face, unsigned long glyph, int phaseX, int phaseY);

private:
    using FaceKey = std::pair<_cairo_scaled_font*, std::array<double, 4>>;

    static UXCairoGlyphPixels _render(_cairo_scaled_font* font, const UXTransform& toDevice,
                                      unsigned long glyph, int phaseX, int phaseY);

    std::map<FaceKey, Face> m_faces;
    std::size_t m_bytes = 0;
};
