#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_point.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/**
 * How much of each pixel is covered by bands: polygons whose edge runs to one side and back again, as that of
 * an area below a line. The part of a pixel is the exact area of all bands in it, and the work grows with the
 * number of points and pixels, not with how high the points lie from each other.
 */
class UXCairoBandCoverage {
public:
    /** @return whether the points, which are finite, go one way along x and then the other, once round */
    static bool isBand(std::span<const UXDoublePoint> polygon);

    /** @param bands in pixels
     *  @param clip the pixels that count */
    UXCairoBandCoverage(std::span<const std::vector<UXDoublePoint>> bands, const UXCairoPixels::Box& clip);

    void draw(UXCairoPixels& pixels) const;

private:
    /** How many more rows a bend within one reaches. */
    static constexpr std::size_t kBendReach = 2;
    /** Columns beside each other, which are gone through together. */
    static constexpr std::size_t kBlockWidth = 16;
    using Block = std::array<std::int32_t, kBlockWidth>;

    void _takeBox(std::span<const std::vector<UXDoublePoint>> bands, const UXCairoPixels::Box& clip);
    void _add(std::span<const UXDoublePoint> band);
    void _addEdge(const UXDoublePoint& from, const UXDoublePoint& to, double sign);
    void _addPart(std::size_t column, double width, double from, double to);
    void _addBend(std::size_t column, double at, std::int32_t slope);
    void _addStep(std::size_t column, double at, std::int32_t height);
    void _addBends(std::size_t row, std::size_t column,
                   const std::array<std::int32_t, kBendReach + 1>& bends);

    UXCairoPixels::Box m_box;
    std::size_t m_width = 0, m_height = 0, m_blockCount = 0; // the blocks of a row
    /** By how much the slope, down a column, of what is covered changes at each row: where it does. */
    std::vector<Block> m_bends;
    /** Of each block of each row, row by row; 0 for one without bends. */
    std::vector<std::uint32_t> m_bendIndexes;
};
