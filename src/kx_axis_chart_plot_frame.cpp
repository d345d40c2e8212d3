#include "kx_axis_chart_plot_frame.h"

#include <algorithm>

std::optional<KXAxisChartStretch> KXAxisChartPlotFrame::placeAlong(double from, double to) const
{
    const double first = values.obtainPosition(from), second = values.obtainPosition(to);
    const KXAxisChartStretch room = obtainAlong();
    const double start = std::min(first, second), end = std::max(first, second);
    if (end < room.start || start > room.end)
        return std::nullopt;
    const KXAxisChartStretch placed{std::max(start, room.start), std::min(end, room.end)};
    if (placed.end <= placed.start && end > start)
        return std::nullopt;
    return placed;
}

UXDoubleRect KXAxisChartPlotFrame::makeRect(const KXAxisChartStretch& across,
                                            const KXAxisChartStretch& along) const
{
    if (isVertical)
        return {across.start, along.start, across.obtainLength(), along.obtainLength()};
    return {along.start, across.start, along.obtainLength(), across.obtainLength()};
}

KXAxisChartStretch KXAxisChartPlotFrame::obtainAcross(const UXDoubleRect& rect) const
{
    return isVertical ? KXAxisChartStretch{rect.x, rect.x + rect.width}
                      : KXAxisChartStretch{rect.y, rect.y + rect.height};
}

KXAxisChartStretch KXAxisChartPlotFrame::obtainAlong(const UXDoubleRect& rect) const
{
    return isVertical ? KXAxisChartStretch{rect.y, rect.y + rect.height}
                      : KXAxisChartStretch{rect.x, rect.x + rect.width};
}
