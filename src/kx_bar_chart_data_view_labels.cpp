#include "kx_bar_chart_data_view.h"

#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_chart_records.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** Between a bar's end and the end of the area, beside the label, in logical units. */
constexpr double labelMargin = 6;
/** Labels and titles leave the axis at least about this part of the plot. */
constexpr double leastAxisShare = 0.75;
/** Labels that need a larger part of the axis are worth less than the bars that they shorten. */
constexpr double greatestRoomShare = 0.15;

/** Between the totals of two stacks, in logical units. */
constexpr double totalGap = 3;
/** Totals that need a larger part of the plot are worth less than the bars that they leave no room: across
 * the bars, and along them. */
constexpr double greatestTotalWidth = 0.5, greatestTotalLength = 0.2;

} // namespace

/** What the labels say, in the order in which they choose their places. */
struct KXBarChartDataView::LabelRequests {
    /** The sum of a category, at the end of its stack. */
    struct Sum {
        std::size_t slot; // in the layout
        double place;
        std::string text;
    };
    /** The text of one bar. */
    struct Label {
        std::size_t bar; // in the layout
        KXBarLabelPlacer::Request request;
    };
    std::vector<Sum> totals;
    std::vector<Label> labels;
};

/** What the label beyond the longest bar needs in addition to the room that the axis leaves there, 0 where
 * that is too much. */
double KXBarChartDataView::obtainExtraLength() const
{
    const KXAxisChartStacking form = obtainStacking();
    const bool hasLabels = !kxIsStack(form) && m_property->getShowLabels() &&
                           m_property->getLabelPosition() == KXBarLabelPosition::Outside;
    const bool hasTotals = form == KXAxisChartStacking::Stacked && m_property->getShowTotals();
    const KXXYAxisChart& chart = *getChart();
    const KXAxisChartAxisCacheData* axis = chart.obtainAxisCacheData(&_getValueAxisProperty());
    if ((!hasLabels && !hasTotals) || !axis || getShownSeries().empty() ||
        !_getValueAxisProperty().getAutoAxisRange())
        return 0;
    const double highest = hasTotals ? axis->stackedMax : axis->dataMax;
    const double span = axis->axisMax - axis->axisMin;
    if (!(highest > 0) || !(span > 0) || !std::isfinite(span))
        return 0;
    const UXDoubleSize text = uxMeasureText(chart.obtainValueText(getShownSeries().front(), highest),
                                            hasTotals ? m_property->getTotalProperty()
                                                      : m_property->getLabelProperty());
    const UXRect plot = chart.getPlot()->getRect();
    const double length = leastAxisShare * (chart.isVertical() ? plot.height : plot.width);
    const double wanted = labelMargin + std::ceil(chart.isVertical() ? text.height : text.width);
    const double missing = std::max(wanted - length * ((axis->axisMax - highest) / span), 0.0);
    return missing <= greatestRoomShare * length ? missing : 0;
}

/** Totals stand side by side, those of each stack beyond it. */
double KXBarChartDataView::obtainLabelledCategorySpacing() const
{
    const KXXYAxisChart& chart = *getChart();
    const KXAxisChartAxisCacheData* axis = chart.obtainAxisCacheData(&_getValueAxisProperty());
    if (obtainStacking() != KXAxisChartStacking::Stacked || !m_property->getShowTotals() || !axis ||
        getShownSeries().empty())
        return 0;
    double across = 0, along = 0;
    for (const double total : {axis->stackedMin, axis->stackedMax}) {
        const UXDoubleSize text = uxMeasureText(chart.obtainValueText(getShownSeries().front(), total),
                                                m_property->getTotalProperty());
        across = std::max(across, std::ceil(chart.isVertical() ? text.width : text.height) + totalGap);
        along = std::max(along, chart.isVertical() ? text.height : text.width);
    }
    const UXRect plot = chart.getPlot()->getRect();
    const double mostAcross = greatestTotalWidth * (chart.isVertical() ? plot.width : plot.height);
    const double mostAlong = greatestTotalLength * (chart.isVertical() ? plot.height : plot.width);
    return across <= mostAcross && along <= mostAlong ? across : 0;
}

/** Totals have the first choice, then the extremes of each series, then all others from the start on. */
void KXBarChartDataView::layoutLabels()
{
    m_made->labels.clear();
    if (isDense() || (!m_property->getShowLabels() && !m_property->getShowTotals()))
        return;
    const KXAxisChartStacks source = _makeStacks();
    if (source.series.empty())
        return;
    LabelRequests requests;
    if (m_property->getShowTotals() && source.form == KXAxisChartStacking::Stacked)
        _requestTotals(source, requests);
    if (m_property->getShowLabels())
        for (const bool extremes : {true, false})
            _requestBarLabels(source, requests, extremes);
    _placeLabels(requests);
}

void KXBarChartDataView::_requestTotals(const KXAxisChartStacks& source, LabelRequests& requests) const
{
    const std::vector<KXBarSlot>& slots = getSlots();
    for (std::size_t i = 0; i < slots.size(); ++i)
        for (const Total& total : _obtainTotals(source, slots[i].category))
            requests.totals.push_back(
                {i, total.place, getChart()->obtainValueText(source.series.front().index, total.value)});
}

std::vector<KXBarChartDataView::Total> KXBarChartDataView::_obtainTotals(const KXAxisChartStacks& source,
                                                                         std::uint64_t category) const
{
    const double total = source.obtainTotal(category);
    return {{total, total}};
}

void KXBarChartDataView::_requestBarLabels(const KXAxisChartStacks& source, LabelRequests& requests,
                                           bool extremes)
{
    const KXAxisChartValueOption option = m_property->getLabelValueOption();
    for (std::size_t i = 0; i < getBars().size(); ++i) {
        const KXAxisChartMark mark = getBars()[i].mark;
        const auto found = std::ranges::find(source.series, mark.series, &KXAxisChartStacks::Series::index);
        if (found == source.series.end())
            return;
        const auto position = static_cast<std::size_t>(found - source.series.begin());
        const KXSeriesFacts& facts = m_made->texts.obtainFacts(*getChart(), source, position);
        const bool isExtreme = mark.category == facts.least || mark.category == facts.greatest;
        if (isExtreme != extremes ||
            !kxIsValueLabelled(option, facts, getChart()->getSeriesValues(mark.series),
                               getChart()->getCategoryPlaces(), mark.category))
            continue;
        _requestBarLabel(source, i, position, isExtreme, requests);
    }
}

bool KXBarChartDataView::_canStandOutside(std::size_t) const
{
    return !kxIsStack(obtainStacking()) || getShownSeries().size() == 1;
}

void KXBarChartDataView::_requestBarLabel(const KXAxisChartStacks& source, std::size_t index,
                                          std::size_t position, bool isExtreme, LabelRequests& requests)
{
    const KXBar& bar = getBars()[index];
    KXBarLabelPlacer::Request request;
    request.text = m_made->texts.obtainText(*getChart(), source, bar.mark, position,
                                            m_property->getLabelDisplayOption(), obtainValue(bar.mark));
    request.property = m_property->getLabelProperty();
    request.barColor = _obtainTextGround(index, m_made->barColors[index]);
    request.isExtreme = isExtreme;
    request.canStandOutside = _canStandOutside(index);
    const UXColor usualColor = request.property.textColor;
    getChart()->customizeMarkLabel(bar.mark, request.text, request.property);
    request.hasOwnColor = request.property.textColor != usualColor;
    requests.labels.push_back({index, std::move(request)});
}

void KXBarChartDataView::_placeLabels(const LabelRequests& requests)
{
    KXBarLabelPlacer placer(*this, {m_property->getLabelPosition(), m_property->getLabelOverflow(),
                                    m_property->getAutoLabelColor()});
    for (const UXDoubleRect& rect : _obtainEarlierLabels())
        placer.addObstacle(rect);
    for (const LabelRequests::Sum& total : requests.totals)
        placer.addTotal(getSlots()[total.slot], total.place, total.text, m_property->getTotalProperty());
    for (const LabelRequests::Label& label : requests.labels)
        placer.add(label.bar, label.request);
    m_made->labels = placer.place();
    _setLabelLosses(placer.getLosses());
}

std::vector<UXDoubleRect> KXBarChartDataView::obtainLabelRects() const
{
    std::vector<UXDoubleRect> rects;
    rects.reserve(m_made->labels.size());
    for (const auto& label : m_made->labels)
        rects.push_back(label.rect);
    return rects;
}

void KXBarChartDataView::paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    for (const KXBarLabel& label : m_made->labels) {
        if (!uxIntersectsRect(uxSurroundingRect(label.rect), dirtyRect))
            continue;
        UXTextProperty property = label.property;
        property.textColor = getChart()->obtainTextColor(label.mark, property.textColor);
        painter.drawText(label.text, label.rect, property);
    }
}
