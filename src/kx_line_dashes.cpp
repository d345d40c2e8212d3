#include "kx_line_dashes.h"

#include <cmath>

namespace {

bool isFinite(const UXDoublePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

} // namespace

std::vector<KXLinePiece> kxDivideDashedLine(
    std::span<const UXDoublePoint> points,
    const std::function<bool(const UXDoublePoint& from, const UXDoublePoint& to)>& isMerged)
{
    std::vector<KXLinePiece> pieces;
    bool goesOn = false;
    double way = 0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const UXDoublePoint &from = points[i - 1], &to = points[i];
        if (!isFinite(from) || !isFinite(to)) {
            goesOn = false;
            way = 0;
            continue;
        }
        const bool isFull = isMerged(from, to);
        if (!goesOn || pieces.back().isFull != isFull)
            pieces.push_back({i - 1, i, way, isFull});
        goesOn = true;
        pieces.back().end = i + 1;
        way += std::hypot(to.x - from.x, to.y - from.y);
    }
    return pieces;
}
