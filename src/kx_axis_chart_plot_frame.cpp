#include "kx_axis_chart_plot_frame.h"

#include <algorithm>
#include <cmath>

namespace {

// Device pixels per logical unit. Beyond these there are no pixels to stand on: nobody sees a chart so small
// or so large, and places would leave double's range.
constexpr double leastScale = 1e-6, greatestScale = 1e6;

/** Pixels that lie differently by less than this are the same. */
constexpr double pixelNoise = 1e-6;

} // namespace

void KXAxisChartPlotFrame::takePixels(const UXTransform& toDevice)
{
    const UXTransform pixels = toDevice.unmirrored();
    const double scale = isVertical ? pixels.xx : pixels.yy;
    const double offset = isVertical ? pixels.dx : pixels.dy;
    if (!toDevice.isUpright() || !(scale >= leastScale && scale <= greatestScale) || !std::isfinite(offset))
        return;
    pixelScale = scale;
    pixelOffset = offset - std::floor(offset);
}

bool KXAxisChartPlotFrame::hasSamePixels(const KXAxisChartPlotFrame& other) const
{
    const double moved = other.pixelOffset - pixelOffset;
    return std::abs(other.pixelScale - pixelScale) < pixelNoise &&
           std::abs(moved - std::round(moved)) < pixelNoise;
}

UXDoubleRect KXAxisChartPlotFrame::snapAcross(const UXDoubleRect& rect) const
{
    const KXAxisChartInterval across = obtainAcross(rect);
    const double start = std::round(toPixel(across.start));
    const double length = std::max(std::round(across.obtainLength() * pixelScale), 1.0);
    return makeRect({fromPixel(start), fromPixel(start + length)}, obtainAlong(rect));
}

std::optional<KXAxisChartInterval> KXAxisChartPlotFrame::placeAlong(double from, double to) const
{
    // Zero lies at the side of a gap at which the other end is.
    const double first = values.obtainPosition(from == 0 ? std::copysign(0, to) : from),
                 second = values.obtainPosition(to == 0 ? std::copysign(0, from) : to);
    const KXAxisChartInterval room = obtainAlong();
    const double start = std::min(first, second), end = std::max(first, second);
    if (end < room.start || start > room.end)
        return std::nullopt;
    const KXAxisChartInterval placed{std::max(start, room.start), std::min(end, room.end)};
    if (placed.end <= placed.start && end > start)
        return std::nullopt;
    return placed;
}

UXDoublePoint KXAxisChartPlotFrame::makePoint(double across, double along) const
{
    return isVertical ? UXDoublePoint(across, along) : UXDoublePoint(along, across);
}

UXDoubleRect KXAxisChartPlotFrame::makeRect(const KXAxisChartInterval& across,
                                            const KXAxisChartInterval& along) const
{
    if (isVertical)
        return {across.start, along.start, across.obtainLength(), along.obtainLength()};
    return {along.start, across.start, along.obtainLength(), across.obtainLength()};
}

KXAxisChartInterval KXAxisChartPlotFrame::obtainAcross(const UXDoubleRect& rect) const
{
    return isVertical ? KXAxisChartInterval{rect.x, rect.x + rect.width}
                      : KXAxisChartInterval{rect.y, rect.y + rect.height};
}

KXAxisChartInterval KXAxisChartPlotFrame::obtainAlong(const UXDoubleRect& rect) const
{
    return isVertical ? KXAxisChartInterval{rect.y, rect.y + rect.height}
                      : KXAxisChartInterval{rect.x, rect.x + rect.width};
}
