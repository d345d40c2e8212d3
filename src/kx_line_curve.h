#pragma once

#include "kx_export.h"
#include "kx_line_chart_options.h"
#include "ux/ux_double_point.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/** A point of the data that a line runs through. */
struct KXLineVertex {
    std::uint64_t category = 0;
    double across = 0, along = 0; /**< its place in the units of the plot */
    bool startsRun = false;       /**< nothing leads here from the vertex before */

    friend bool operator==(const KXLineVertex&, const KXLineVertex&) = default;
};

/**
 * Appends the straight pieces of a smooth line from the vertex before one to that one, without its start.
 * @param run the two and their neighbours in the data; one where the line ends has none
 * @param vertex the place of the end in run, above 0
 */
KX_EXPORT void kxAppendSmoothPiece(std::span<const KXLineVertex> run, std::size_t vertex, double pieceLength,
                                   std::vector<UXDoublePoint>& points);

/**
 * Appends the straight pieces of a line through the vertices of one run, x across and y along.
 * @param run by places across that never go back
 * @param pieceLength of a smooth line, across
 */
KX_EXPORT void kxAppendCurve(std::span<const KXLineVertex> run, KXLineCurve curve, double pieceLength,
                             std::vector<UXDoublePoint>& points);
