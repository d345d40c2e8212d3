#pragma once

#include "ux/cairo/ux_cairo_pixels.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/**
 * How much of each pixel equal opaque marks cover: the greatest part that any of them does, so that each
 * pixel is drawn once however many marks lie on it. Where all that a mark could cover is covered in full,
 * further ones are passed over.
 */
class UXCairoMarkCoverage {
public:
    /** The pixels of a row of a stamp that are worked on at once. */
    static constexpr int blockWidth = 8;

    /** @param box the pixels that count
     *  @param width of a stamp, in pixels: whole blocks
     *  @param height of a stamp */
    UXCairoMarkCoverage(const UXCairoPixels::Box& box, int width, int height);

    /** @param left where the stamp's pixels begin, no further beside the box than a stamp is large
     *  @param top likewise
     *  @param stamp what a mark covers there, row by row, 255 for all of a pixel */
    void add(int left, int top, const std::uint8_t* stamp);
    void draw(UXCairoPixels& pixels) const;

private:
    std::size_t _find(int left, int top) const;

    UXCairoPixels::Box m_box;
    int m_width, m_height; // of a stamp, and of the room around the box for what lies beside it
    std::size_t m_rowLength;
    std::vector<std::uint8_t> m_coverage; // row by row
    std::vector<std::uint8_t> m_areFull;  // whether all pixels of a stamp that begins there are covered
};
