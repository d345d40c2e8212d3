#include "kx_line_chart_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_chart_item_look.h"
#include "kx_highlighted_parts.h"
#include "kx_line_chart_property.h"
#include "kx_line_point.h"
#include "kx_line_segment.h"
#include "kx_lines.h"
#include "kx_point_shapes.h"
#include "kx_whiskers.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

/** Of areas, where the user sets none. */
constexpr double usualFillOpacity = 0.16, stackedFillOpacity = 0.9;
/** The ring around what stands out, unless the host gives it a line. */
constexpr UXColor ringColor(255, 255, 255);
/** How wide a line and how large a point of a legend's symbol can be, as parts of its height. */
constexpr double greatestSymbolWidth = 0.4, greatestSymbolPoint = 0.8;
/** How opaque the area of such a symbol is. */
constexpr double symbolAreaOpacity = 0.4;

} // namespace

void KXLineChartDataView::paint(UXPainter& painter, const UXRect&) const
{
    const UXPainterState state(painter);
    for (std::size_t position = 0; position < m_colors.size(); ++position) {
        const double opacity = _obtainOpacity(getShownSeries()[position]);
        _paintArea(painter, position, m_layout.shapes[position], _obtainWholeOpacity(position));
        if (const KXLineShape* part = _findPart(position))
            _paintArea(painter, position, *part, opacity);
        _paintBand(painter, position);
    }
    for (std::size_t position = 0; position < m_colors.size(); ++position) {
        const double opacity = _obtainOpacity(getShownSeries()[position]);
        _paintLine(painter, position, m_layout.shapes[position], _obtainWholeOpacity(position));
        if (const KXLineShape* part = _findPart(position))
            _paintLine(painter, position, *part, opacity);
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

/** @return what is drawn in full of a series that is drawn in part; null for one that is not */
const KXLineShape* KXLineChartDataView::_findPart(std::size_t position) const
{
    const bool isPart = position < m_layout.parts.size() && !m_layout.parts[position].line.points.empty();
    return isPart ? &m_layout.parts[position] : nullptr;
}

/** The whole gives way to the part of it that belongs to what is chosen elsewhere. */
double KXLineChartDataView::_obtainWholeOpacity(std::size_t position) const
{
    const double opacity = _obtainOpacity(getShownSeries()[position]);
    return _findPart(position)
               ? KXHighlightedParts::obtainLightColor({0, 0, 0, opacity}, getChart()->obtainDimmedOpacity())
                     .alpha
               : opacity;
}

void KXLineChartDataView::_paintBand(UXPainter& painter, std::size_t position) const
{
    if (m_bands[position].empty())
        return;
    const double opacity = _obtainOpacity(getShownSeries()[position]);
    if (m_drawsWhiskers) {
        painter.setLineDash(std::vector<double>());
        painter.setLineWidth(kxWhiskerWidth);
        m_colors[position].use(painter, m_frame, opacity);
        painter.drawPolyline(m_bands[position].front());
        return;
    }
    m_colors[position].use(painter, m_frame, std::clamp(m_property->getBandOpacity(), 0.0, 1.0) * opacity);
    painter.drawPolygons(m_bands[position]);
}

void KXLineChartDataView::_paintArea(UXPainter& painter, std::size_t position, const KXLineShape& shape,
                                     double opacity) const
{
    if (shape.fills.empty())
        return;
    const double usual = m_edges.isStacked() ? stackedFillOpacity : usualFillOpacity;
    const double own = m_property->getFillOpacity();
    m_colors[position].use(painter, m_frame, (own < 0 ? usual : std::min(own, 1.0)) * opacity);
    painter.drawPolygons(shape.fills);
}

void KXLineChartDataView::_paintLine(UXPainter& painter, std::size_t position, const KXLineShape& shape,
                                     double opacity) const
{
    const std::uint64_t series = getShownSeries()[position];
    const std::vector<UXDoublePoint>& points = shape.line.points;
    if (!(_obtainLineWidth(series) > 0) || points.size() < 2)
        return;
    KXLinePen pen = _obtainPen(series);
    const std::vector<KXLinePiece>& pieces = shape.line.pieces;
    m_colors[position].use(painter, m_frame, opacity);
    if (!pen.isDashed() || pieces.empty()) {
        pen.use(painter);
        painter.drawPolyline(points);
        return;
    }
    const KXChartLineStyle style = pen.style;
    for (const KXLinePiece& piece : pieces) {
        pen.style = piece.isFull ? KXChartLineStyle::None : style;
        pen.use(painter, piece.way);
        painter.drawPolyline(std::span(points).subspan(piece.first, piece.end - piece.first));
    }
}

void KXLineChartDataView::_paintPoints(UXPainter& painter, std::size_t position) const
{
    const std::uint64_t series = getShownSeries()[position];
    const auto range = std::ranges::equal_range(m_points, series, {},
                                                [](const KXLinePlace& point) { return point.mark.series; });
    if (range.empty())
        return;
    painter.setLineDash(std::vector<double>());
    const double opacity = _obtainWholeOpacity(position);
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
        kxDrawPoints(painter, m_property->obtainPointShape(series), centres, m_property->obtainPointSize());
    }
}

/** Over the lines, also where no points are drawn. */
void KXLineChartDataView::_paintHighlighted(UXPainter& painter) const
{
    KXLines standingOut;
    for (const KXAxisChartMark& mark : getChart()->obtainMarksStandingOut())
        _addStandingOut(standingOut, mark);
    standingOut.paint(painter);
}

void KXLineChartDataView::_addStandingOut(KXLines& lines, const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    const auto found = std::ranges::find(getShownSeries(), mark.series);
    const auto position = static_cast<std::size_t>(found - getShownSeries().begin());
    if (!place || position >= m_colors.size())
        return;
    const KXXYAxisChart& chart = *getChart();
    const UXColor usual = chart.obtainHostColor(mark).value_or(_obtainColor(position, mark));
    const KXChartItemLook look = chart.obtainMarkLook(mark, usual);
    KXLinePoint& point = lines.addPoint();
    point.setCentre(*place);
    point.setShape(m_property->obtainPointShape(mark.series));
    point.setSize(_obtainStandingOutSize(look));
    point.setColor(look.fill);
    point.setRingColor(look.line.alpha > 0 ? look.line : ringColor);
}

bool KXLineChartDataView::_hasPoints(std::uint64_t series) const
{
    return std::ranges::binary_search(m_points, series, {},
                                      [](const KXLinePlace& point) { return point.mark.series; });
}

bool KXLineChartDataView::paintLegendSymbol(std::uint64_t series, UXPainter& painter,
                                            const UXDoubleRect& bounds, const UXColor& color) const
{
    KXLinePen pen = _obtainPen(series);
    const KXPointShape shape = m_property->obtainPointShape(series);
    const KXLinePointDisplay display = m_property->getPointDisplay();
    const bool hasPoint = display == KXLinePointDisplay::Always ||
                          (shape != KXPointShape::Circle && display == KXLinePointDisplay::Auto &&
                           (_hasPoints(series) || !getChart()->isSeriesShown(series)));
    const bool isUsual = m_type == KXAxisChartType::Scatter ? shape == KXPointShape::Circle
                                                            : !pen.isDashed() && pen.width > 0 && !hasPoint;
    if (isUsual || !(bounds.width > 0) || !(bounds.height > 0))
        return false;
    const bool isArea = m_type == KXAxisChartType::Area;
    pen.width = std::min(pen.width, greatestSymbolWidth * bounds.height);
    pen.cap = KXChartLineCapStyle::Butt;
    const double y = isArea ? bounds.y + pen.width / 2 : bounds.y + bounds.height / 2;
    if (isArea) {
        UXColor area = color;
        area.alpha *= symbolAreaOpacity;
        painter.setColor(area);
        painter.addRectanglePath(bounds);
        painter.fill();
    }
    KXLines symbol;
    KXLineSegment& line = symbol.addSegment();
    line.setEnds({bounds.x, y}, {bounds.x + bounds.width, y});
    line.setColor(color);
    line.setPen(pen);
    const std::optional<UXSymbolStyle> style = obtainLegendSymbolStyle(series);
    const bool isLeft = style == UXSymbolStyle::LineLeft || style == UXSymbolStyle::AreaLeft;
    const bool isRight = style == UXSymbolStyle::LineRight || style == UXSymbolStyle::AreaRight;
    if (hasPoint || isLeft || isRight || !(pen.width > 0)) {
        // At an end it says which of two axes is meant.
        KXLinePoint& point = symbol.addPoint();
        point.setShape(shape);
        point.setColor(color);
        point.setSize(std::min(m_property->obtainPointSize(), greatestSymbolPoint * bounds.height));
        const double reach = point.getSize() / 2;
        point.setCentre({isLeft    ? bounds.x + reach
                         : isRight ? bounds.x + bounds.width - reach
                                   : bounds.x + bounds.width / 2,
                         bounds.y + bounds.height / 2});
    }
    symbol.paint(painter);
    return true;
}
