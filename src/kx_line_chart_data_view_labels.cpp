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
    double widest = 0;
    for (const std::uint64_t series : getShownSeries()) {
        const UXDoubleSize size = helper->getTextSize(getChart()->getSeriesLabel(series),
                                                      m_property->getLabelProperty());
        widest = std::max(widest, isVertical ? size.width : size.height);
    }
    const UXRect plot = getChart()->getPlot()->getRect();
    const double point = std::max(m_property->getPointSize(), 0.0) / 2 + KXLineLabelPlacer::gap;
    return std::min(std::ceil(widest + point), greatestNameShare * (isVertical ? plot.width : plot.height));
}

/** Extremes of each series have the first choice, then all others from the start on. */
void KXLineChartDataView::layoutLabels()
{
    m_labels.clear();
    if (!m_property->getShowLabels() || m_layout.shapes.empty())
        return;
    KXLineLabelPlacer placer(m_frame, m_property->getLabelPosition(), m_property->getPointSize());
    if (_showsNames()) {
        _requestNames(placer);
    } else {
        for (const KXLinePlace& point : m_points)
            placer.addObstacle(point.place);
        _requestLabels(_makeStacks(), placer);
    }
    m_labels = placer.place();
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
                kxIsValueLabelled(option, facts, source.series[position].values, at))
                _requestLabel(source, _makePlace(position, vertex), position, placer);
        }
    }
}

void KXLineChartDataView::_requestLabel(const KXAxisChartStacks& source, const KXLinePlace& place,
                                        std::size_t position, KXLineLabelPlacer& placer)
{
    std::string text = m_texts.obtainText(*getChart(), source, place.mark, position,
                                          m_property->getLabelDisplayOption());
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

void KXLineChartDataView::paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    for (const KXLineLabel& label : m_labels) {
        if (!uxIntersectsRect(uxSurroundingRect(label.rect), dirtyRect))
            continue;
        UXTextProperty property = label.property;
        property.textColor = getChart()->obtainTextColor(label.mark, property.textColor);
        painter.drawText(label.text, label.rect, property);
    }
}
