#include "ux/ux_scroll_range.h"

#include <cmath>

std::int64_t uxMoveScrollOffset(const UXScrollRange& range, double distance)
{
    const std::int64_t limit = uxObtainScrollLimit(range);
    const std::int64_t offset = std::clamp<std::int64_t>(range.offset, 0, limit);
    if (std::isnan(distance))
        return offset;
    const double rounded = std::round(distance);
    if (rounded >= static_cast<double>(limit - offset))
        return limit;
    return rounded <= -static_cast<double>(offset) ? 0 : offset + static_cast<std::int64_t>(rounded);
}

UXSliderSpan uxObtainSliderSpan(const UXScrollRange& range, int track, int minLength)
{
    track = std::max(track, 0);
    const std::int64_t limit = uxObtainScrollLimit(range);
    if (limit == 0 || track == 0)
        return {0, track};

    // The share that shows, though never so small that it could not be grasped.
    const double shown = static_cast<double>(std::max<std::int64_t>(range.shownExtent, 0));
    const double share = shown / static_cast<double>(range.contentExtent);
    const int length = std::clamp(static_cast<int>(std::round(share * track)), std::min(minLength, track),
                                  std::max(track - 2, std::min(minLength, track)));

    // Rounding must not show an end that is not reached yet.
    const int room = track - length;
    const std::int64_t offset = std::clamp<std::int64_t>(range.offset, 0, limit);
    if (offset == 0 || offset == limit || room < 2)
        return {offset == 0 ? 0 : room, length};
    const double start = static_cast<double>(offset) / static_cast<double>(limit) * room;
    return {std::clamp(static_cast<int>(std::round(start)), 1, room - 1), length};
}

std::int64_t uxObtainDraggedOffset(const UXScrollRange& range, const UXSliderSpan& span, int track,
                                   int distance)
{
    const std::int64_t limit = uxObtainScrollLimit(range);
    const std::int64_t room = std::max<std::int64_t>(std::int64_t{track} - span.length, 0);
    if (distance == 0 || room == 0)
        return std::clamp<std::int64_t>(range.offset, 0, limit);
    const std::int64_t start = std::int64_t{span.start} + distance;
    if (start <= 0 || start >= room)
        return start <= 0 ? 0 : limit;
    return uxMoveScrollOffset(range, static_cast<double>(distance) / static_cast<double>(room) *
                                         static_cast<double>(limit));
}
