#pragma once

#include "ux/ux_export.h"

#include <algorithm>
#include <cstdint>

/** How much there is to scroll in one direction and what shows of it, in logical units. */
struct UXScrollRange {
    std::int64_t contentExtent = 0;
    std::int64_t shownExtent = 0;
    std::int64_t offset = 0; /**< the content's place at the start of what shows */

    friend bool operator==(const UXScrollRange&, const UXScrollRange&) = default;
};

/** Where a slider lies on its track, in logical units from the track's start. */
struct UXSliderSpan {
    int start = 0;
    int length = 0;

    friend bool operator==(const UXSliderSpan&, const UXSliderSpan&) = default;
};

/** @return the largest offset, 0 where the content fits */
[[nodiscard]] constexpr std::int64_t uxObtainScrollLimit(const UXScrollRange& range)
{
    return std::max<std::int64_t>(
        std::max<std::int64_t>(range.contentExtent, 0) - std::max<std::int64_t>(range.shownExtent, 0), 0);
}

/** @return offset moved by distance and rounded, inside 0 and the limit; not moved by NaN */
[[nodiscard]] UX_EXPORT std::int64_t uxMoveScrollOffset(const UXScrollRange& range, double distance);

/** @return the slider of range: as long as the share that shows, at least minLength where the track has that
 * room, and the whole track where the content fits. It touches an end of the track only at that end. */
[[nodiscard]] UX_EXPORT UXSliderSpan uxObtainSliderSpan(const UXScrollRange& range, int track, int minLength);

/** @return the offset after a slider was dragged along its track, which is range's own for distance 0
 *  @param span the slider before the drag
 *  @param distance how far it was dragged, logical units; the ends of the track are the ends of the content
 */
[[nodiscard]] UX_EXPORT std::int64_t uxObtainDraggedOffset(const UXScrollRange& range,
                                                           const UXSliderSpan& span, int track, int distance);
