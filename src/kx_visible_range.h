#pragma once

#include "kx_export.h"

/** A part of an axis that is shown, in what the axis counts. */
struct KXVisibleRange {
    double from = 0, to = 0;

    double obtainLength() const { return to - from; }
    friend bool operator==(const KXVisibleRange&, const KXVisibleRange&) = default;
};

/** @param whole what there is to see
 *  @param least the least length of what is shown
 *  @return range inside of whole, moved there where it lies beside; whole where range is empty or not finite,
 * or as long as whole */
[[nodiscard]] KX_EXPORT KXVisibleRange kxFitVisibleRange(const KXVisibleRange& range,
                                                         const KXVisibleRange& whole, double least);

/** @param about what keeps its place
 *  @param factor of the length, below 1 to see less */
[[nodiscard]] KX_EXPORT KXVisibleRange kxZoomVisibleRange(const KXVisibleRange& range, double about,
                                                          double factor);

[[nodiscard]] KX_EXPORT KXVisibleRange kxMoveVisibleRange(const KXVisibleRange& range, double distance);
