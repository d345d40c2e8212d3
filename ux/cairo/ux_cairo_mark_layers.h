#pragma once

#include "ux/cairo/ux_cairo_pixels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/**
 * What marks that lie on each other leave of the ground below, pixel by pixel: each pixel is written once,
 * the same as if the marks were drawn one after the other, without the rounding in between.
 */
class UXCairoMarkLayers {
public:
    /** The pixels of a row of a stamp that are worked on at once. */
    static constexpr int blockWidth = 8;

    /** @param box the pixels that count
     *  @param width of a stamp, in pixels: whole blocks
     *  @param height of a stamp */
    UXCairoMarkLayers(const UXCairoPixels::Box& box, int width, int height);

    /** @param left where the stamp's pixels begin, no further beside the box than a stamp is large
     *  @param top likewise
     *  @param stamp what a mark takes of the ground there, row by row, 65535 for all of a pixel */
    void add(int left, int top, const std::uint16_t* stamp);
    void draw(UXCairoPixels& pixels) const;

private:
    std::size_t _find(int left, int top) const;

    UXCairoPixels::Box m_box;
    int m_width, m_height; // of a stamp, and of the room around the box for what lies beside it
    std::size_t m_rowLength;
    std::vector<std::uint16_t> m_transparencies; // row by row
};
