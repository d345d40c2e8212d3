#include "kx_line_chart_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_line_chart_property.h"
#include "kx_point_shapes.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

/** Of areas, where the user sets none. */
constexpr double usualFillOpacity = 0.16, stackedFillOpacity = 0.9;
/** A point that stands out is as much larger, and so large at least, in logical units. */
constexpr double standingOutRatio = 1.4, leastStandingOutSize = 8;
/** The ring around it. */
constexpr double ringWidth = 1.5;
constexpr UXColor ringColor(255, 255, 255);

/** Lengths of a dash and of the gap behind it as they are seen, in widths of the line. */
constexpr double dashLength = 4, dashGap = 2.5, dotLength = 1, dotGap = 1.5;

std::vector<double> obtainDashes(KXChartLineStyle style, KXChartLineCapStyle cap, double width)
{
    // Round and square ends reach half a width beyond each dash.
    const double ends = cap == KXChartLineCapStyle::Butt ? 0 : 1;
    switch (style) {
    case KXChartLineStyle::Dot:
        return {width * (dotLength - ends), width * (dotGap + ends)};
    case KXChartLineStyle::Dash:
        return {width * (dashLength - ends), width * (dashGap + ends)};
    case KXChartLineStyle::None:
        break;
    }
    return {};
}

UXLineCapStyle toPaintStyle(KXChartLineCapStyle cap)
{
    switch (cap) {
    case KXChartLineCapStyle::Butt:
        return UXLineCapStyle::Butt;
    case KXChartLineCapStyle::Square:
        return UXLineCapStyle::Square;
    case KXChartLineCapStyle::Round:
        break;
    }
    return UXLineCapStyle::Round;
}

UXLineJoinStyle toPaintStyle(KXChartLineJoinStyle join)
{
    switch (join) {
    case KXChartLineJoinStyle::Miter:
        return UXLineJoinStyle::Miter;
    case KXChartLineJoinStyle::Bevel:
        return UXLineJoinStyle::Bevel;
    case KXChartLineJoinStyle::Round:
        break;
    }
    return UXLineJoinStyle::Round;
}

} // namespace

void KXLineChartDataView::paint(UXPainter& painter, const UXRect&) const
{
    const UXPainterState state(painter);
    for (std::size_t position = 0; position < m_colors.size(); ++position)
        _paintArea(painter, position);
    for (std::size_t position = 0; position < m_colors.size(); ++position) {
        _paintLine(painter, position);
        _paintPoints(painter, position);
    }
    _paintHighlighted(painter);
}

double KXLineChartDataView::_obtainOpacity(std::uint64_t series) const
{
    const KXXYAxisChart& chart = *getChart();
    return chart.isHighlighting() && !chart.isSeriesHighlighted(series)
               ? std::clamp(chart.getAxisChartProperty()->getDimmedOpacity(), 0.0, 1.0)
               : 1;
}

void KXLineChartDataView::_paintArea(UXPainter& painter, std::size_t position) const
{
    const auto& fills = m_layout.shapes[position].fills;
    if (fills.empty())
        return;
    const double usual = m_edges.isStacked() ? stackedFillOpacity : usualFillOpacity;
    const double own = m_property->getFillOpacity();
    m_colors[position].use(painter, m_frame,
                           (own < 0 ? usual : std::min(own, 1.0)) *
                               _obtainOpacity(getShownSeries()[position]));
    for (const std::vector<UXDoublePoint>& polygon : fills) {
        for (std::size_t i = 0; i < polygon.size(); ++i)
            if (i == 0)
                painter.setStartPoint(polygon[i].x, polygon[i].y);
            else
                painter.addLinePath(polygon[i].x, polygon[i].y);
        painter.closePath();
    }
    painter.fill();
}

void KXLineChartDataView::_paintLine(UXPainter& painter, std::size_t position) const
{
    const std::uint64_t series = getShownSeries()[position];
    const double width = _obtainLineWidth(series);
    const std::vector<UXDoublePoint>& points = m_layout.shapes[position].line.points;
    if (!(width > 0) || points.size() < 2)
        return;
    // Dashes of many values in one column would be noise.
    const KXChartLineStyle style = isDense() ? KXChartLineStyle::None : m_property->obtainLineStyle(series);
    painter.setLineWidth(width);
    painter.setLineCap(toPaintStyle(m_property->getLineCapStyle()));
    painter.setLineJoin(toPaintStyle(m_property->getLineJoinStyle()));
    painter.setLineDash(obtainDashes(style, m_property->getLineCapStyle(), width), 0);
    m_colors[position].use(painter, m_frame, _obtainOpacity(series));
    painter.drawPolyline(points);
}

void KXLineChartDataView::_paintPoints(UXPainter& painter, std::size_t position) const
{
    const std::uint64_t series = getShownSeries()[position];
    const auto range = std::ranges::equal_range(m_points, series, {},
                                                [](const KXLinePlace& point) { return point.mark.series; });
    if (range.empty())
        return;
    painter.setLineDash(std::vector<double>());
    const double opacity = _obtainOpacity(series);
    const auto obtainColor = [&](auto point) {
        return m_pointColors[static_cast<std::size_t>(point - m_points.begin())];
    };
    std::vector<UXDoublePoint> centres;
    for (auto point = range.begin(); point != range.end();) {
        UXColor color = obtainColor(point);
        centres.clear();
        // A colour of a host with NaN in it equals none, itself included.
        const UXColor first = color;
        do
            centres.push_back(point->place);
        while (++point != range.end() && obtainColor(point) == first);
        color.alpha *= opacity;
        painter.setColor(color);
        kxDrawPoints(painter, m_property->obtainPointShape(series), centres, m_property->getPointSize());
    }
}

void KXLineChartDataView::_paintHighlighted(UXPainter& painter) const
{
    for (const KXAxisChartMark& mark : getChart()->obtainMarksStandingOut())
        _paintStandingOut(painter, mark);
}

/** Over the lines, also where no points are drawn. */
void KXLineChartDataView::_paintStandingOut(UXPainter& painter, const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    const auto found = std::ranges::find(getShownSeries(), mark.series);
    const auto position = static_cast<std::size_t>(found - getShownSeries().begin());
    if (!place || position >= m_colors.size())
        return;
    const KXXYAxisChart& chart = *getChart();
    const UXColor usual = chart.obtainHostColor(mark).value_or(
        m_colors[position].obtainColor(obtainValue(mark)));
    const KXChartItemLook look = chart.obtainMarkLook(mark, usual);
    const double size = std::max(m_property->getPointSize() * standingOutRatio, leastStandingOutSize) *
                        look.sizeRatio;
    const KXPointShape shape = m_property->obtainPointShape(mark.series);
    painter.setLineDash(std::vector<double>());
    painter.setColor(look.line.alpha > 0 ? look.line : ringColor);
    kxDrawPoints(painter, shape, {&*place, 1}, size + 2 * ringWidth);
    painter.setColor(look.fill);
    kxDrawPoints(painter, shape, {&*place, 1}, size);
}
