#include "kx_line_chart_data_view.h"

#include "kx_line_chart_property.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>

namespace {

/** Of more points than these only extremes and ends can have a label that tells which one it is about. */
constexpr std::size_t greatestLabelCount = 400;
/** What is behind a text through which a line runs. */
constexpr UXColor usualGround(255, 255, 255);
constexpr double plateOpacity = 0.75;
/** Names have at most this part of the plot. */
constexpr double greatestNameShare = 0.25;

} // namespace

/** @return whether labels are the names of the series at the ends of their lines */
bool KXLineChartDataView::_showsNames() const
{
    return m_property->getShowLabels() &&
           m_property->getLabelDisplayOption() == KXAxisChartLabelDisplayOption::Title &&
           m_property->getLabelValueOption() == KXAxisChartValueOption::LineEnds;
}

double KXLineChartDataView::obtainExtraRoomAcross() const
{
    if (!_showsNames() || getShownSeries().empty())
        return 0;
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const bool isVertical = getChart()->isVertical();
    const UXRect plot = getChart()->getPlot()->getRect();
    const double most = greatestNameShare * (isVertical ? plot.width : plot.height);
    const double point = m_property->obtainPointSize() / 2 + KXLineLabelPlacer::gap;
    double widest = 0;
    for (const std::uint64_t series : getShownSeries()) {
        const UXDoubleSize size = helper->getTextSize(getChart()->getSeriesLabel(series),
                                                      m_property->getLabelProperty());
        const double room = std::ceil((isVertical ? size.width : size.height) + point);
        // A name for which there is no room anyway takes none from the lines.
        widest = room <= most ? std::max(widest, room) : widest;
    }
    return widest;
}

/** Extremes of each series have the first choice, then all others from the start on. */
void KXLineChartDataView::layoutLabels()
{
    m_labels.clear();
    if (!m_property->getShowLabels() || m_layout.shapes.empty())
        return;
    KXLineLabelPlacer placer(m_frame, m_property->getLabelPosition(), m_property->obtainPointSize(),
                             [this](const UXDoubleRect& rect) { return _isOverLine(rect); });
    for (const UXDoubleRect& rect : _obtainEarlierLabels())
        placer.addObstacle(rect);
    if (_showsNames()) {
        _requestNames(placer);
    } else {
        for (const KXLinePlace& point : m_points)
            placer.addObstacle(point.place);
        _requestLabels(_makeStacks(), placer);
    }
    m_labels = placer.place();
    _setLabelLosses(placer.getLosses());
}

void KXLineChartDataView::_requestLabels(const KXAxisChartStacks& source, KXLineLabelPlacer& placer)
{
    const KXAxisChartValueOption option = m_property->getLabelValueOption();
    for (std::size_t position = 0; position < std::min(source.series.size(), m_layout.shapes.size());
         ++position) {
        const KXSeriesFacts& facts = m_texts.obtainFacts(*getChart(), source, position);
        const std::vector<KXLineVertex>& vertices = m_layout.shapes[position].line.vertices;
        const bool areMany = vertices.size() > greatestLabelCount;
        for (const KXLineVertex& vertex : vertices) {
            const std::uint64_t at = vertex.category;
            const bool isOutstanding = at == facts.least || at == facts.greatest || at == facts.first ||
                                       at == facts.last;
            if (_isInSight(vertex) && (isOutstanding || !areMany) &&
                kxIsValueLabelled(option, facts, source.series[position].values,
                                  getChart()->getCategoryPlaces(), at))
                _requestLabel(source, _makePlace(position, vertex), position, placer);
        }
    }
}

void KXLineChartDataView::_requestLabel(const KXAxisChartStacks& source, const KXLinePlace& place,
                                        std::size_t position, KXLineLabelPlacer& placer)
{
    std::string text = m_texts.obtainText(*getChart(), source, place.mark, position,
                                          m_property->getLabelDisplayOption(),
                                          source.obtainValue(position, place.mark.category));
    UXTextProperty property = m_property->getLabelProperty();
    getChart()->customizeMarkLabel(place.mark, text, property);
    const KXSeriesFacts& facts = m_texts.obtainFacts(*getChart(), source, position);
    using Extreme = KXLineLabelPlacer::Extreme;
    placer.add(place.mark, place.place, text, property,
               place.mark.category == facts.greatest ? Extreme::Greatest
               : place.mark.category == facts.least  ? Extreme::Least
                                                     : Extreme::None);
}

void KXLineChartDataView::_requestNames(KXLineLabelPlacer& placer) const
{
    for (std::size_t position = 0; position < m_layout.shapes.size(); ++position) {
        const std::vector<KXLineVertex>& vertices = m_layout.shapes[position].line.vertices;
        const auto last = std::find_if(vertices.rbegin(), vertices.rend(), [&](const KXLineVertex& vertex) {
            return _isInSight(vertex) && !std::isnan(_makePlace(position, vertex).value);
        });
        if (last == vertices.rend())
            continue;
        const KXLinePlace place = _makePlace(position, *last);
        placer.addName(place.mark, place.place, getChart()->getSeriesLabel(place.mark.series),
                       m_property->getLabelProperty());
    }
}

/** @return whether a line runs through a part of the plot */
bool KXLineChartDataView::_isOverLine(const UXDoubleRect& rect) const
{
    const KXAxisChartInterval across = m_frame.obtainAcross(rect), along = m_frame.obtainAlong(rect);
    const auto obtainAcross = [this](const UXDoublePoint& point) { return _obtainAcross(point); };
    const auto obtainAlong = [this](const UXDoublePoint& point) {
        return m_frame.isVertical ? point.y : point.x;
    };
    return std::ranges::any_of(m_layout.shapes, [&](const KXLineShape& shape) {
        const std::vector<UXDoublePoint>& points = shape.line.points;
        auto point = std::ranges::lower_bound(points, across.start, {}, obtainAcross);
        point -= point == points.begin() ? 0 : 1;
        for (; point + 1 < points.end() && obtainAcross(*point) < across.end; ++point) {
            // Where the piece enters and leaves what the text has across; a gap compares with nothing.
            const double from = obtainAlong(*point), to = obtainAlong(point[1]);
            const double width = obtainAcross(point[1]) - obtainAcross(*point);
            const auto obtainPlace = [&](double place) {
                const double share = width > 0 ? (place - obtainAcross(*point)) / width : 0;
                return from + std::clamp(share, 0.0, 1.0) * (to - from);
            };
            const double entry = obtainPlace(across.start), exit = width > 0 ? obtainPlace(across.end) : to;
            if (std::max(entry, exit) >= along.start && std::min(entry, exit) <= along.end)
                return true;
        }
        return false;
    });
}

std::vector<UXDoubleRect> KXLineChartDataView::obtainLabelRects() const
{
    std::vector<UXDoubleRect> rects;
    rects.reserve(m_labels.size());
    for (const auto& label : m_labels)
        rects.push_back(label.rect);
    return rects;
}

void KXLineChartDataView::paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    UXColor plate = getChart()->getBackgroundColor();
    if (plate.alpha <= 0)
        plate = usualGround;
    plate.alpha *= plateOpacity;
    for (const KXLineLabel& label : m_labels) {
        if (!uxIntersectsRect(uxSurroundingRect(label.rect), dirtyRect))
            continue;
        UXTextProperty property = label.property;
        property.textColor = getChart()->obtainTextColor(label.mark, property.textColor);
        if (label.isOverLine) {
            painter.setColor(plate);
            painter.addRectanglePath(label.rect);
            painter.fill();
        }
        painter.drawText(label.text, label.rect, property);
    }
}
