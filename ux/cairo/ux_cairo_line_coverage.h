#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_point.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/**
 * How much of each pixel a round-capped, round-joined line covers. Pieces of the line may cross as they like:
 * a pixel has the greatest of their parts and is drawn once, as the stroke of the whole line is. The part is
 * that of a straight edge at the pixel's distance from the line, at most a sixteenth off the area. Where a
 * line goes up and down in each column of pixels, the rows between are found once for all of its pieces.
 */
class UXCairoLineCoverage {
public:
    /** Rows or columns, from the first one on and up to end without it. */
    struct Range {
        int first = 0, end = 0;
    };

    /** @param points of the line, in pixels; one that is not finite is a gap, one between two gaps a disc
     *  @param width of the line, in pixels, above 0
     *  @param clip the pixels that count */
    UXCairoLineCoverage(std::span<const UXDoublePoint> points, double width, const UXCairoPixels::Box& clip);

    void draw(UXCairoPixels& pixels) const;

private:
    struct Piece;
    void _takeBox(std::span<const UXDoublePoint> points, const UXCairoPixels::Box& clip);
    void _addPiece(const UXDoublePoint& from, const UXDoublePoint& to, std::vector<Piece>& pieces) const;
    void _addSolid(const Piece& piece);
    void _coverPiece(const Piece& piece);
    void _coverBeside(const Piece& piece, int x, const Range& rows);
    void _coverEnd(const UXDoublePoint& end);
    void _coverAbout(const UXDoublePoint& end, int x, const Range& rows);
    /** @param distance of the middle of a pixel from the line */
    void _raise(std::uint8_t& pixel, double distance) const
    {
        const double part = std::clamp(m_radius + 0.5 - distance, 0.0, m_greatest);
        pixel = std::max(pixel, static_cast<std::uint8_t>(part * 255 + 0.5));
    }
    /** @return the columns whose middles are no further than reach beside a piece */
    Range _findColumns(const Piece& piece, double reach) const;
    /** @return the rows of column x whose middles are no further than half above or below the line of a piece
     * nor beyond its ends */
    Range _findRows(const Piece& piece, int x, double half, double beyond) const;
    void _fillSolid();
    std::uint8_t* _at(std::size_t column, int y)
    {
        return m_coverage.data() + static_cast<std::size_t>(y - m_box.top) * m_solid.size() + column;
    }

    UXCairoPixels::Box m_box;
    double m_radius;
    double m_greatest;                    // part of a pixel that the line can cover
    std::vector<Range> m_solid;           // one a column: rows that are covered in full
    std::vector<std::uint8_t> m_coverage; // row by row
};
