#pragma once

#include "ux/cairo/ux_cairo_pixels.h"
#include "ux/ux_double_point.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/**
 * How much of each pixel a round-capped, round-joined line covers. Pieces of the line may cross as they like:
 * a pixel has the greatest of their parts and is drawn once, as the stroke of the whole line is. The part is
 * that of a straight edge at the pixel's distance from the line, at most a sixteenth off the area.
 */
class UXCairoLineCoverage {
public:
    /** @param points of the line, in pixels; one that is not finite is a gap, one between two gaps a disc
     *  @param width of the line, in pixels, above 0
     *  @param clip the pixels that count */
    UXCairoLineCoverage(std::span<const UXDoublePoint> points, double width, const UXCairoPixels::Box& clip);

    void draw(UXCairoPixels& pixels) const;

private:
    struct Row {
        int first, end; // of the pixels that may be covered
    };
    struct Piece;

    void _takeBox(std::span<const UXDoublePoint> points, const UXCairoPixels::Box& clip);
    void _addPiece(const UXDoublePoint& from, const UXDoublePoint& to);
    void _coverRow(const Piece& piece, int y);

    UXCairoPixels::Box m_box;
    double m_radius;
    double m_greatest; // part of a pixel that the line can cover
    std::vector<std::uint8_t> m_coverage;
    std::vector<Row> m_rows;
};
