#pragma once

#include "kx_export.h"
#include "ux/ux_double_point.h"

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

/** Points of a line that are stroked at once. The last one is also the first of the next piece. */
struct KXLinePiece {
    std::size_t first = 0, end = 0;
    double way = 0;      /**< of the line before it, from where its run begins; logical units */
    bool isFull = false; /**< not dashed */

    friend bool operator==(const KXLinePiece&, const KXLinePiece&) = default;
};

/**
 * Divides a dashed line where many values share a pixel: dashes would be noise there, and it is drawn full.
 * @param points one that is not finite is a gap; what has no neighbour is in no piece
 * @param isMerged whether what lies between two neighbours stands for many values
 */
[[nodiscard]] KX_EXPORT std::vector<KXLinePiece> kxDivideDashedLine(
    std::span<const UXDoublePoint> points,
    const std::function<bool(const UXDoublePoint& from, const UXDoublePoint& to)>& isMerged);
