#include "kx_bar_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double whole = 100;
/** Between a bar's end and the end of the area, beside the label, in logical units. */
constexpr double labelMargin = 6;
/** Labels and titles leave the axis at least about this part of the plot. */
constexpr double leastAxisShare = 0.75;
/** Labels that need a larger part of the axis are worth less than the bars that they shorten. */
constexpr double greatestRoomShare = 0.15;

} // namespace

void KXBarChart::_customUpdateAxes()
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_customUpdateAxes();
    if (self.isAlive())
        getYAxis()->setExtraLength("barLabels", _obtainLabelRoom());
}

/** @return what the label beyond the longest bar needs in addition to the room that the axis leaves there, 0
 * where that is too much */
double KXBarChart::_obtainLabelRoom() const
{
    const KXAxisChartStacking form = obtainBarForm();
    const bool hasLabels = form == KXAxisChartStacking::Plain && m_barChartProperty->getShowLabels() &&
                           m_barChartProperty->getLabelPosition() == KXBarLabelPosition::Outside;
    const bool hasTotals = form == KXAxisChartStacking::Stacked && m_barChartProperty->getShowTotals();
    const KXAxisChartAxisCacheData* axis = obtainAxisCacheData(getYAxisProperty());
    if ((!hasLabels && !hasTotals) || !axis || getShownSeries().empty() ||
        !getYAxisProperty()->getAutoAxisRange())
        return 0;
    const double highest = hasTotals ? axis->stackedMax : axis->dataMax;
    const double span = axis->axisMax - axis->axisMin;
    if (!(highest > 0) || !(span > 0) || !std::isfinite(span))
        return 0;
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXDoubleSize text = helper->getTextSize(obtainValueText(getShownSeries().front(), highest),
                                                  hasTotals ? m_barChartProperty->getTotalProperty()
                                                            : m_barChartProperty->getLabelProperty());
    const UXRect plot = getPlot()->getRect();
    const double length = leastAxisShare * (isVertical() ? plot.height : plot.width);
    const double wanted = labelMargin + std::ceil(isVertical() ? text.height : text.width);
    const double missing = std::max(wanted - length * ((axis->axisMax - highest) / span), 0.0);
    return missing <= greatestRoomShare * length ? missing : 0;
}

/** Totals have the first choice, then the extremes of each series, then all others from the start on. */
void KXBarChart::_layoutLabels()
{
    const KXBarChartProperty& property = *m_barChartProperty;
    if (!property.getShowLabels() && !property.getShowTotals())
        return;
    const UXObjectWatcher self(this);
    const KXAxisChartStacks source = _makeSource();
    if (source.series.empty())
        return;
    LabelWishes wishes;
    if (property.getShowTotals() && source.form == KXAxisChartStacking::Stacked)
        _wishTotals(source, wishes);
    if (property.getShowLabels())
        for (const bool extremes : {true, false})
            if (!_wishBarLabels(source, wishes, extremes) || !self.isAlive())
                return;
    m_labelWishes = std::move(wishes);
    _placeLabels();
}

void KXBarChart::_wishTotals(const KXAxisChartStacks& source, LabelWishes& wishes)
{
    const std::vector<KXBarSlot>& slots = m_dataView.getSlots();
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const double total = source.obtainTotal(slots[i].category);
        wishes.totals.push_back({i, total, obtainValueText(source.series.front().index, total)});
    }
}

/** @return false where the host destroyed the chart, replaced its data or had it laid out anew */
bool KXBarChart::_wishBarLabels(const KXAxisChartStacks& source, LabelWishes& wishes, bool extremes)
{
    const KXAxisChartValueOption option = m_barChartProperty->getLabelValueOption();
    for (std::size_t i = 0; i < m_dataView.getBars().size(); ++i) {
        const KXAxisChartMark mark = m_dataView.getBars()[i].mark;
        const auto found = std::ranges::find(source.series, mark.series, &KXAxisChartStacks::Series::index);
        if (found == source.series.end())
            return false;
        const auto position = static_cast<std::size_t>(found - source.series.begin());
        const KXBarSeriesFacts& facts = _obtainFacts(source, position);
        const bool isExtreme = mark.category == facts.least || mark.category == facts.greatest;
        if (isExtreme != extremes || !kxIsBarLabelled(option, facts, found->values, mark.category))
            continue;
        if (!_wishBarLabel(source, i, position, isExtreme, wishes))
            return false;
    }
    return true;
}

bool KXBarChart::_wishBarLabel(const KXAxisChartStacks& source, std::size_t index, std::size_t position,
                               bool isExtreme, LabelWishes& wishes)
{
    const UXObjectWatcher self(this);
    const KXBar bar = m_dataView.getBars()[index];
    KXBarLabelPlacer::Wish wish;
    wish.text = _obtainLabelText(source, bar, position);
    if (!self.isAlive())
        return false;
    wish.property = m_barChartProperty->getLabelProperty();
    wish.barColor = m_barColors[index];
    wish.isExtreme = isExtreme;
    wish.canStandOutside = source.form == KXAxisChartStacking::Plain || source.series.size() == 1;
    const UXColor usualColor = wish.property.textColor;
    if (auto* provider = dynamic_cast<KXAxisChartDataProvider*>(beginUseDataProvider())) {
        const KXIndexPath path = provider->obtainSeriesValuePath(this, bar.mark.series, bar.mark.category);
        if (self.isAlive())
            provider->customizeValueDataLabel(this, path, wish.text, wish.property);
    }
    if (!self.isAlive())
        return false;
    endUseDataProvider();
    if (!_isLent(source) || index >= m_dataView.getBars().size() ||
        m_dataView.getBars()[index].mark != bar.mark)
        return false;
    wish.hasOwnColor = wish.property.textColor != usualColor;
    wishes.labels.push_back({index, std::move(wish)});
    return true;
}

/** Asks nobody, so that it can be done again where the bars move by a part of a unit: on another device. */
void KXBarChart::_placeLabels()
{
    const KXBarChartProperty& property = *m_barChartProperty;
    KXBarLabelPlacer placer(
        m_dataView, {property.getLabelPosition(), property.getLabelOverflow(), property.getAutoLabelColor()});
    for (const LabelWishes::Total& total : m_labelWishes.totals)
        placer.placeTotal(m_dataView.getSlots()[total.slot], total.value, total.text,
                          property.getTotalProperty());
    for (const LabelWishes::Label& label : m_labelWishes.labels)
        placer.place(m_dataView.getBars()[label.bar], label.wish);
    m_labels = placer.takeLabels();
}

const KXBarSeriesFacts& KXBarChart::_obtainFacts(const KXAxisChartStacks& source, std::size_t position)
{
    if (m_facts.size() != source.series.size()) {
        m_facts.clear();
        for (const KXAxisChartStacks::Series& series : source.series) {
            const std::size_t count = std::min<std::size_t>(series.values.size(), obtainShownCategoryCount());
            m_facts.push_back(kxObtainBarSeriesFacts(series.values.first(count)));
        }
    }
    return m_facts[position];
}

/** @return the part that a bar has of its stack, or of all values of its series where it stands alone */
double KXBarChart::_obtainPercentage(const KXAxisChartStacks& source, const KXAxisChartMark& mark,
                                     std::size_t position)
{
    const double all = source.form == KXAxisChartStacking::Plain ? _obtainFacts(source, position).magnitude
                                                                 : source.obtainMagnitude(mark.category);
    return all > 0 ? whole * (std::abs(source.obtainValue(position, mark.category)) / all) : 0;
}

/** @return whether bars are about their parts, by their form or by what their labels say */
bool KXBarChart::_tellsPercentages() const
{
    const KXAxisChartLabelDisplayOption option = m_barChartProperty->getLabelDisplayOption();
    return obtainBarForm() == KXAxisChartStacking::Percentage ||
           option == KXAxisChartLabelDisplayOption::PercentageOnly ||
           option == KXAxisChartLabelDisplayOption::ValueAndPercentage;
}

std::string KXBarChart::_obtainLabelText(const KXAxisChartStacks& source, const KXBar& bar,
                                         std::size_t position)
{
    switch (m_barChartProperty->getLabelDisplayOption()) {
    case KXAxisChartLabelDisplayOption::ValueOnly:
        break;
    case KXAxisChartLabelDisplayOption::PercentageOnly:
        return formatPercentage(_obtainPercentage(source, bar.mark, position));
    case KXAxisChartLabelDisplayOption::ValueAndPercentage:
        return obtainValueText(bar.mark.series, bar.value) + " (" +
               formatPercentage(_obtainPercentage(source, bar.mark, position)) + ")";
    case KXAxisChartLabelDisplayOption::Title:
        return getSeriesCount() > 1 ? getSeriesLabel(bar.mark.series)
                                    : obtainCategoryLabel(bar.mark.category);
    }
    return obtainValueText(bar.mark.series, bar.value);
}

void KXBarChart::_paintMarkLabels(UXPainter& painter)
{
    const double dimmed = std::clamp(getAxisChartProperty()->getDimmedOpacity(), 0.0, 1.0);
    for (const KXBarLabel& label : m_labels) {
        UXTextProperty property = label.property;
        if (isHighlighting() && (!label.mark || !isMarkHighlighted(*label.mark)))
            property.textColor.alpha *= dimmed;
        painter.drawText(label.text, label.rect, property);
    }
}
