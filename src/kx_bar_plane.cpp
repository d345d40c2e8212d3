#include "kx_bar_plane.h"

#include <algorithm>

std::optional<KXBarStretch> KXBarPlane::placeAlong(double from, double to) const
{
    const double first = values.obtainPosition(from), second = values.obtainPosition(to);
    const KXBarStretch room = obtainAlong();
    const double start = std::min(first, second), end = std::max(first, second);
    if (end < room.start || start > room.end)
        return std::nullopt;
    const KXBarStretch placed{std::max(start, room.start), std::min(end, room.end)};
    if (placed.end <= placed.start && end > start)
        return std::nullopt;
    return placed;
}

UXDoubleRect KXBarPlane::makeRect(const KXBarStretch& across, const KXBarStretch& along) const
{
    if (isVertical)
        return {across.start, along.start, across.obtainLength(), along.obtainLength()};
    return {along.start, across.start, along.obtainLength(), across.obtainLength()};
}

KXBarStretch KXBarPlane::obtainAcross(const UXDoubleRect& rect) const
{
    return isVertical ? KXBarStretch{rect.x, rect.x + rect.width}
                      : KXBarStretch{rect.y, rect.y + rect.height};
}

KXBarStretch KXBarPlane::obtainAlong(const UXDoubleRect& rect) const
{
    return isVertical ? KXBarStretch{rect.y, rect.y + rect.height}
                      : KXBarStretch{rect.x, rect.x + rect.width};
}
