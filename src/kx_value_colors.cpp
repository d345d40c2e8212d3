#include "kx_value_colors.h"

#include "kx_axis_chart_plot_frame.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

UXColor fade(UXColor color, double opacity)
{
    color.alpha *= opacity;
    return color;
}

} // namespace

UXColor KXValueColors::obtainColor(double value) const
{
    if (value < 0 && negativeColor.alpha > 0)
        return negativeColor;
    return scale && !std::isnan(value) ? scale->obtainColor(value) : color;
}

void KXValueColors::_usePlaces(UXPainter& painter, const KXAxisChartPlotFrame& frame, double opacity) const
{
    const double from = places.front().first, to = places.back().first;
    if (!(from < to)) {
        painter.setColor(fade(places.front().second, opacity));
        return;
    }
    const UXDoublePoint first = frame.makePoint(from, 0), last = frame.makePoint(to, 0);
    painter.beginLinearGradientPattern(first.x, first.y, last.x, last.y, UXSourceOperator::Pad);
    for (const auto& [place, placed] : places)
        painter.addGradientPatternColorStop(fade(placed, opacity), (place - from) / (to - from));
    painter.endPattern();
    painter.usePattern();
}

void KXValueColors::use(UXPainter& painter, const KXAxisChartPlotFrame& frame, double opacity) const
{
    if (!places.empty()) {
        _usePlaces(painter, frame, opacity);
        return;
    }
    const KXAxisChartInterval room = frame.obtainAlong();
    const double start = frame.values.obtainValue(room.start), end = frame.values.obtainValue(room.end);
    const double low = std::min(start, end), high = std::max(start, end);
    if ((!scale && negativeColor.alpha <= 0) || !(low < high) || !std::isfinite(high) ||
        !std::isfinite(low)) {
        painter.setColor(fade(obtainColor((low + high) / 2), opacity));
        return;
    }

    // 1. Between these values the colour is one, or runs evenly from one to another.
    std::vector<double> bounds;
    if (scale)
        bounds = scale->obtainClassBounds();
    for (const double bound : {low, high})
        bounds.push_back(bound);
    if (negativeColor.alpha > 0)
        bounds.push_back(0);
    if (scale) {
        const double middle = scale->middleValue > scale->least && scale->middleValue < scale->greatest
                                  ? scale->middleValue
                                  : scale->least / 2 + scale->greatest / 2;
        for (const double bound : {scale->least, middle, scale->greatest})
            bounds.push_back(bound);
    }
    std::erase_if(bounds, [low, high](double bound) { return bound < low || bound > high; });
    std::ranges::sort(bounds);

    // 2. Each piece has its own two stops, so that colours may also change at once.
    const double from = frame.values.obtainPosition(low), to = frame.values.obtainPosition(high);
    const UXDoublePoint first = frame.makePoint(0, from), last = frame.makePoint(0, to);
    painter.beginLinearGradientPattern(first.x, first.y, last.x, last.y, UXSourceOperator::Pad);
    for (std::size_t i = 1; i < bounds.size(); ++i) {
        const double inside = bounds[i - 1] / 2 + bounds[i] / 2;
        const bool isEven = !scale || scale->classCount > 0 || (inside < 0 && negativeColor.alpha > 0);
        for (const double bound : {bounds[i - 1], bounds[i]})
            painter.addGradientPatternColorStop(
                fade(isEven ? obtainColor(inside) : scale->obtainColor(bound), opacity),
                (frame.values.obtainPosition(bound) - from) / (to - from));
    }
    painter.endPattern();
    painter.usePattern();
}
