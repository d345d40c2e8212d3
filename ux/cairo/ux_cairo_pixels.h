#pragma once

#include "ux/cairo/ux_cairo_types.h"
#include "ux/ux_transform.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/**
 * The pixels of a picture in memory, to be written past Cairo. They can be where a context draws one colour
 * over what is there, upright, and clipped by whole pixels. What it knows of the context holds until its clip
 * changes, and until its source or operator does, which takeSource asks for anew.
 */
class UXCairoPixels {
public:
    /** Pixels from left and top up to right and bottom, without these. */
    struct Box {
        int left = 0, top = 0, right = 0, bottom = 0;

        bool isEmpty() const { return left >= right || top >= bottom; }
    };

    /** Around all that is written without Cairo drawing meanwhile: tells it before and after. */
    class Writing {
    public:
        explicit Writing(UXCairoPixels& pixels);
        ~Writing();

        Writing(const Writing&) = delete;
        Writing& operator=(const Writing&) = delete;

    private:
        UXCairoSurface* m_surface;
    };

    /** @param toDevice from the present space of context to the pixels of its surface */
    UXCairoPixels(UXCairoContext* context, const UXTransform& toDevice);

    UXCairoPixels(const UXCairoPixels&) = delete;
    UXCairoPixels& operator=(const UXCairoPixels&) = delete;

    /** Learns what context draws with now. */
    void takeSource(UXCairoContext* context);
    bool isUsable() const { return m_surface && m_hasColor; }
    /** @return what may be written, boxes that do not overlap */
    const std::vector<Box>& getClip() const { return m_clip; }
    /** Draws the colour over the pixels of box, which lies within the clip. */
    void fill(const Box& box);
    /** Draws the colour over the pixels of a row from left on, within the clip.
     *  @param coverage how much of each pixel is covered, 255 for all of it */
    void blend(int left, int y, const std::uint8_t* coverage, std::size_t count);
    /** Draws the colour over a rectangle of pixels, as far as the clip lets it: of a text, of which much is
     * not covered.
     *  @param coverage as many rows as box has, each rowLength from the one before */
    void blendBox(const Box& box, const std::uint8_t* coverage, std::size_t rowLength);
    /** Draws other pixels over those of box, as far as the clip lets it.
     *  @param pixels row after row of box, their colours multiplied by alpha */
    void drawOver(const Box& box, std::span<const std::uint32_t> pixels);
    /** @return how opaque the colour is, 0 to 1 */
    double getOpacity() const { return m_opacity; }
    /** Lays the colour, as if it were opaque, over the pixels of a row from left on, within the clip.
     *  @param transparencies how much of each pixel is left of what is there, 65535 for all of it */
    void lay(int left, int y, const std::uint16_t* transparencies, std::size_t count);

private:
    static Box _intersect(const Box& a, const Box& b);
    bool _takeClip(UXCairoContext* context, const UXTransform& toDevice, int width, int height);
    void _drawOver(std::uint32_t* pixels, std::size_t count) const;
    void _takeParts();
    void _blendTogether(std::uint32_t* pixels, const std::uint8_t* coverage) const;
    void _blendRow(std::uint32_t* pixels, const std::uint8_t* coverage, std::size_t count) const;
    std::uint32_t* _row(int y) { return m_rows + y * m_rowLength; }

    UXCairoSurface* m_surface = nullptr; // none where it cannot be written
    bool m_hasColor = false;
    std::uint32_t* m_rows = nullptr;
    std::ptrdiff_t m_rowLength = 0;
    std::vector<Box> m_clip;
    std::uint32_t m_color = 0; // its parts multiplied by alpha
    /** For each part of a pixel that can be covered; made when first needed. */
    std::vector<std::uint32_t> m_partColors, m_partRests;
    std::uint32_t m_opaqueColor = 0;
    double m_opacity = 0;
};
