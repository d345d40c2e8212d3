#include "kx_scatter_chart_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_chart_item_look.h"
#include "kx_chart_items.h"
#include "kx_label_placer.h"
#include "kx_point_shapes.h"
#include "kx_scatter_chart_property.h"
#include "kx_scatter_plot_area.h"
#include "kx_scatter_plot_data.h"
#include "kx_scatter_point.h"
#include "kx_whiskers.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

/** Of more points than these only some labels could be read. */
constexpr std::size_t greatestLabelCount = 400;
/** Between a point and its label, between two labels in a row, and around a label inside its point, in
 * logical units. */
constexpr double labelDistance = 3, labelGap = 4, insideGap = 2;
/** Of fewer points than these all are painted, wherever something is to be painted anew. */
constexpr std::size_t fewestPartlyPainted = 1000;
constexpr double greatestPart = 0.25;
/** The ring around what stands out, unless the host gives it a line. */
constexpr UXColor ringColor(255, 255, 255);
/** A small point that stands out is as much larger, and so large at least, in logical units. */
constexpr double standingOutRatio = 1.4, leastStandingOutSize = 8, greatestGrowing = 16;
/** How far a shape reaches from its centre, as a part of its size, with the soft edge of its ring. */
constexpr double shapeReach = 0.7, edgeReach = 1;

double obtainStandingOutSize(double diameter, const KXChartItemLook& look)
{
    const double grown = diameter < greatestGrowing ? std::min(diameter * standingOutRatio, greatestGrowing)
                                                    : diameter;
    return std::max(grown, leastStandingOutSize) * look.sizeRatio;
}

/** @return color, as opaque as it is, over a ground */
UXColor lay(const UXColor& color, const UXColor& ground)
{
    const double share = std::clamp(color.alpha, 0.0, 1.0);
    const auto mix = [share](int over, int below) {
        return static_cast<int>(std::lround(over * share + below * (1 - share)));
    };
    return {mix(color.red, ground.red), mix(color.green, ground.green), mix(color.blue, ground.blue)};
}

} // namespace

UXColor KXScatterChartDataView::_obtainDrawnColor(const Batch& batch, std::size_t point) const
{
    const KXXYAxisChart& chart = *getChart();
    UXColor color = batch.color;
    color.alpha *= m_opacity;
    const bool isBeside = chart.isHighlighting() &&
                          chart.getItems()->getHighlightedGroup() != m_layout.obtainMark(point).series;
    if (isBeside)
        color.alpha *= std::clamp(chart.obtainDimmedOpacity(), 0.0, 1.0);
    return color;
}

void KXScatterChartDataView::_paintRun(UXPainter& painter, const Batch& batch, std::size_t point,
                                       std::span<const UXDoublePoint> centres) const
{
    painter.setColor(_obtainDrawnColor(batch, point));
    const double diameter = m_layout.obtainDiameter(point);
    if (m_layout.isHollow(point))
        KXScatterPoint::paintRings(painter, centres, diameter);
    else
        kxDrawPoints(painter, m_property->obtainPointShape(m_layout.obtainMark(point).series), centres,
                     diameter);
}

void KXScatterChartDataView::paint(UXPainter& painter, const UXRect& dirtyRect) const
{
    const UXPainterState state(painter);
    if (!m_whiskers.empty()) { // below the points, which may be seen through
        painter.setColor(getChart()->obtainTextColor(std::nullopt, kxWhiskerColor));
        painter.setLineWidth(kxWhiskerWidth);
        painter.drawPolyline(m_whiskers);
    }
    const UXRect part = uxIntersectionRect(dirtyRect, m_frame.area);
    const bool isPart = m_layout.getCount() >= fewestPartlyPainted &&
                        1.0 * part.width * part.height <
                            greatestPart * m_frame.area.width * m_frame.area.height;
    if (isPart)
        _paintPart(painter, part);
    else
        _paintAll(painter);
    _paintStandingOut(painter);
}

void KXScatterChartDataView::_paintAll(UXPainter& painter) const
{
    std::size_t first = 0;
    for (const Batch& batch : m_batches) {
        _paintRun(painter, batch, first, std::span(m_layout.centres).subspan(first, batch.end - first));
        first = batch.end;
    }
}

/** The way from point to point paints as much as it changes. */
void KXScatterChartDataView::_paintPart(UXPainter& painter, const UXRect& dirtyRect) const
{
    const double reach = shapeReach * m_layout.greatestDiameter + edgeReach;
    const std::vector<std::uint32_t> points = _obtainIndex().findInside(
        m_layout, uxInflateDoubleRect(UXDoubleRect(dirtyRect), reach, reach));
    std::vector<UXDoublePoint> centres;
    for (std::size_t i = 0; i < points.size();) {
        const auto batch = std::ranges::upper_bound(m_batches, points[i], {}, &Batch::end);
        const std::size_t first = points[i];
        centres.clear();
        for (; i < points.size() && points[i] < batch->end; ++i)
            centres.push_back(m_layout.centres[points[i]]);
        _paintRun(painter, *batch, first, centres);
    }
}

void KXScatterChartDataView::_paintStandingOut(UXPainter& painter) const
{
    KXScatterPlotArea area;
    for (const KXAxisChartMark& mark : getChart()->obtainMarksStandingOut())
        _addStandingOut(area, mark);
    area.paint(painter);
}

void KXScatterChartDataView::_addStandingOut(KXScatterPlotArea& area, const KXAxisChartMark& mark) const
{
    const std::optional<UXDoublePoint> place = _placeMark(mark);
    if (!place)
        return;
    const KXChartItemLook look = getChart()->obtainMarkLook(mark, obtainColor(mark));
    KXScatterPoint& point = area.obtainData(getChart()->getSeriesLabel(mark.series)).addPoint();
    point.setCentre(*place);
    point.setShape(m_property->obtainPointShape(mark.series));
    point.setSize(obtainStandingOutSize(_obtainDiameter(mark), look));
    point.setColor(look.fill);
    point.setRingColor(look.line.alpha > 0 ? look.line : ringColor);
    point.setIsHollow(_isHollow(mark));
}

/** What stands out and its label. */
std::vector<UXRect> KXScatterChartDataView::obtainMarkRects(const KXAxisChartMark& mark) const
{
    std::vector<UXRect> rects;
    if (const std::optional<UXDoublePoint> place = _placeMark(mark)) {
        const double size = obtainStandingOutSize(_obtainDiameter(mark),
                                                  getChart()->obtainMarkLook(mark, UXColor()));
        const double reach = shapeReach * (size + 2 * KXLinePoint::ringWidth) + edgeReach;
        rects.push_back(
            uxSurroundingRect(UXDoubleRect(place->x - reach, place->y - reach, 2 * reach, 2 * reach)));
    }
    for (const KXScatterLabel& label : m_labels)
        if (label.mark == mark)
            rects.push_back(uxSurroundingRect(label.rect));
    return rects;
}

std::string KXScatterChartDataView::_obtainLabelText(const KXAxisChartMark& mark) const
{
    KXXYAxisChart& chart = *getChart();
    switch (m_property->getLabelContent()) {
    case KXScatterLabelContent::X:
        return obtainXText(mark);
    case KXScatterLabelContent::Y:
        return chart.obtainValueText(mark.series, obtainValue(mark));
    case KXScatterLabelContent::XAndY:
        return obtainXText(mark) + ", " + chart.obtainValueText(mark.series, obtainValue(mark));
    case KXScatterLabelContent::Name:
        break;
    }
    return chart.obtainCategoryLabel(mark.category);
}

/** A label stands in its point where that holds it, else beside it; those of large points choose first. */
void KXScatterChartDataView::layoutLabels()
{
    m_labels.clear();
    if (!m_property->getShowLabels() || m_layout.getCount() == 0 || m_layout.getCount() > greatestLabelCount)
        return;
    // 1. What labels keep off: each other, other points, and what is there already.
    KXLabelPlacer placer(UXDoubleRect(m_frame.area), labelGap);
    for (const UXDoubleRect& rect : _obtainEarlierLabels())
        placer.addLabel(rect);
    for (std::size_t i = 0; i < m_layout.getCount(); ++i) {
        const double half = m_layout.obtainDiameter(i) / 2;
        placer.addObstacle(
            uxInflateDoubleRect({m_layout.centres[i].x, m_layout.centres[i].y, 0, 0}, half, half), i);
    }

    // 2. What each wishes: its own side first.
    const UXColor own = getChart()->getBackgroundColor();
    const UXColor ground = own.alpha > 0 ? own : UXColor(255, 255, 255);
    std::vector<KXLabelRequest> requests;
    requests.reserve(m_layout.getCount());
    for (std::size_t i = 0; i < m_layout.getCount(); ++i) {
        const KXAxisChartMark mark = m_layout.obtainMark(i);
        KXLabelRequest& request = requests.emplace_back();
        request.text = _obtainLabelText(mark);
        request.property = m_property->getLabelProperty();
        request.mark = i;
        getChart()->customizeMarkLabel(mark, request.text, request.property);
        const UXDoubleSize size = placer.measure(request.text, request.property);
        const double radius = m_layout.obtainDiameter(i) / 2, way = radius + labelDistance;
        const UXDoublePoint& at = m_layout.centres[i];
        const UXDoubleRect inside(at.x - size.width / 2, at.y - size.height / 2, size.width, size.height);
        if (std::hypot(size.width / 2 + insideGap, size.height / 2) <= radius && !m_layout.isHollow(i)) {
            UXColor color = obtainColor(mark);
            color.alpha *= m_opacity;
            request.candidates.push_back({inside, lay(color, ground)});
        }
        const auto move = [&](double dx, double dy) {
            UXDoubleRect rect = inside;
            rect.x += dx * (way + size.width / 2);
            rect.y += dy * (way + size.height / 2);
            request.candidates.push_back({rect, {}});
        };
        const std::array<std::pair<double, double>, 4> sides{{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
        const auto wanted = static_cast<std::size_t>(m_property->getLabelPosition());
        move(sides[wanted].first, sides[wanted].second);
        for (const std::size_t side : {2U, 3U, 1U, 0U})
            if (side != wanted)
                move(sides[side].first, sides[side].second);
    }

    // 3. Those that have found a place.
    for (KXPlacedLabel& label : placer.place(requests))
        m_labels.push_back(
            {m_layout.obtainMark(label.request), std::move(label.text), label.rect, label.property});
    _setLabelLosses(placer.getLosses());
}

std::vector<UXDoubleRect> KXScatterChartDataView::obtainLabelRects() const
{
    std::vector<UXDoubleRect> rects;
    rects.reserve(m_labels.size());
    for (const KXScatterLabel& label : m_labels)
        rects.push_back(label.rect);
    return rects;
}

void KXScatterChartDataView::paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    for (const KXScatterLabel& label : m_labels) {
        if (!uxIntersectsRect(uxSurroundingRect(label.rect), dirtyRect))
            continue;
        UXTextProperty property = label.property;
        property.textColor = getChart()->obtainTextColor(label.mark, property.textColor);
        painter.drawText(label.text, label.rect, property);
    }
}
