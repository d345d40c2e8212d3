#include "kx_visible_range.h"

#include <algorithm>
#include <cmath>

KXVisibleRange kxFitVisibleRange(const KXVisibleRange& range, const KXVisibleRange& whole, double least)
{
    // 1. What is no part of anything shows all of it.
    const double all = whole.obtainLength(), length = std::max(range.obtainLength(), least);
    if (!(range.from < range.to) || !std::isfinite(length) || !(length < all))
        return whole;
    // 2. A range that is too short grows about its middle.
    const double start = range.from - (length - range.obtainLength()) / 2;
    // 3. It stops at both ends.
    const double from = std::clamp(start, whole.from, whole.to - length);
    return {from, from + length};
}

KXVisibleRange kxZoomVisibleRange(const KXVisibleRange& range, double about, double factor)
{
    return {about - (about - range.from) * factor, about + (range.to - about) * factor};
}

KXVisibleRange kxMoveVisibleRange(const KXVisibleRange& range, double distance)
{
    return {range.from + distance, range.to + distance};
}
