#include "kx_axis_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_property.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_highlighted_parts.h"
#include "kx_hint_text.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace {

/** A hint with more rows would be higher than most charts. */
constexpr std::size_t greatestHintRowCount = 24;

/** Beside the marks a category as a whole is explained: the item's group is the series that comes first, or
 * none. */
constexpr int categoryKind = -1;
constexpr std::uint64_t noFirst = (std::numeric_limits<std::uint64_t>::max)();

KXAxisChartMark makeMark(const KXChartItem& item) { return {item.group, item.index}; }

} // namespace

KXChartItem KXAxisChart::_makeItem(const KXAxisChartMark& mark) const
{
    const auto view = std::ranges::find(m_views, obtainViewOfSeries(mark.series),
                                        &std::unique_ptr<KXAxisChartDataView>::get);
    const int place = view == m_views.end() ? 0 : static_cast<int>(view - m_views.begin());
    return {place, mark.series, mark.category};
}

std::optional<KXAxisChartMark> KXAxisChart::getHoveredMark() const
{
    const std::optional<KXChartItem>& item = getItems()->getHovered();
    return item ? std::optional(makeMark(*item)) : std::nullopt;
}

bool KXAxisChart::isHighlighting() const { return getItems()->isHighlighting(); }

bool KXAxisChart::isSeriesHighlighted(std::uint64_t series) const
{
    const auto isOfSeries = [series](const KXAxisChartMark& mark) { return mark.series == series; };
    return getItems()->getHighlightedGroup() == series ||
           std::ranges::any_of(obtainMarksStandingOut(), isOfSeries);
}

std::vector<KXAxisChartMark> KXAxisChart::obtainMarksStandingOut() const
{
    std::vector<KXAxisChartMark> marks;
    for (const std::vector<KXChartItem>* items : {&getItems()->getSelected(), &getItems()->getLinked()})
        std::ranges::transform(*items, std::back_inserter(marks), makeMark);
    if (const std::optional<KXAxisChartMark> hovered = getHoveredMark())
        marks.push_back(*hovered);
    return marks;
}

UXColor KXAxisChart::obtainMarkColor(const KXAxisChartMark& mark, const UXColor& color) const
{
    return obtainMarkLook(mark, color).fill;
}

KXChartItemLook KXAxisChart::obtainMarkLook(const KXAxisChartMark& mark, const UXColor& color) const
{
    return getItems()->obtainLook(_makeItem(mark), color);
}

UXColor KXAxisChart::obtainTextColor(const std::optional<KXAxisChartMark>& mark, const UXColor& color) const
{
    if (mark)
        return getItems()->obtainDrawnColor(_makeItem(*mark), color, KXInteractionEffectTarget::NonFilled);
    UXColor drawn = color;
    if (isHighlighting())
        drawn.alpha *= std::clamp(obtainDimmedOpacity(), 0.0, 1.0);
    return drawn;
}

std::optional<KXChartItem> KXAxisChart::obtainItemAt(UXPoint point) const
{
    const UXPoint place = translatePoint(point, getPlot());
    if (!uxPointInRect(place, getMarksArea()) || getShownSeries().empty())
        return std::nullopt;
    const std::optional<KXAxisChartMark> mark = _hitMark(place);
    return mark ? std::optional(_makeItem(*mark)) : std::nullopt;
}

std::optional<KXChartItem> KXAxisChart::obtainExplainedAt(UXPoint point) const
{
    const UXPoint place = translatePoint(point, getPlot());
    if (!uxPointInRect(place, getMarksArea()) || getShownSeries().empty())
        return std::nullopt;
    const std::optional<std::uint64_t> category = _obtainCategoryAt(place);
    if (!category)
        return std::nullopt;
    return KXChartItem{categoryKind, _obtainFirstSeries(place, *category).value_or(noFirst), *category};
}

bool KXAxisChart::hasItem(const KXChartItem& item) const
{
    return isSeriesShown(item.group) && item.index < obtainShownCategoryCount() &&
           !std::isnan(_obtainMarkValue(makeMark(item)));
}

UXRect KXAxisChart::obtainItemRect(const KXChartItem& item) const
{
    const UXRect seen = uxIntersectionRect(_obtainMarkPlace(makeMark(item)), getMarksArea());
    return uxIsEmptyRect(seen) ? UXRect() : translateRect(seen, getPlot(), const_cast<KXAxisChart*>(this));
}

/** Of a mark out of sight the hint stands at the edge behind which it lies. */
UXPoint KXAxisChart::obtainItemHintPoint(const KXChartItem& item)
{
    const UXRect& area = getMarksArea();
    const UXPoint point = _obtainHintPoint(makeMark(item));
    const UXPoint seen(std::clamp(point.x, area.x, std::max(uxMaxX(area) - 1, area.x)),
                       std::clamp(point.y, area.y, std::max(area.getBottom() - 1, area.y)));
    return translatePoint(seen, getPlot(), this);
}

/** Along the categories' axis the walk stays in its series, across it stays at its category. */
std::optional<KXChartItem> KXAxisChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                         KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::uint64_t count = obtainShownCategoryCount();
    if (getShownSeries().empty() || count == 0)
        return std::nullopt;
    if (step == First || step == Last) {
        const KXAxisChartMark end = step == First ? KXAxisChartMark{getShownSeries().front(), 0}
                                                  : KXAxisChartMark{getShownSeries().back(), count - 1};
        return hasItem(_makeItem(end)) ? _makeItem(end) : _obtainMarkInOrder(end, step == First);
    }
    if (!from)
        return std::nullopt;
    const bool forwards = step == Next || step == Right || step == Down || step == PageDown;
    if (step == Previous || step == Next)
        return _obtainMarkInOrder(makeMark(*from), forwards);
    const bool isPage = step == PageUp || step == PageDown;
    const bool isAlong = isPage || isVertical() == (step == Left || step == Right);
    return isAlong ? _obtainMarkAlong(makeMark(*from), forwards, isPage)
                   : _obtainMarkAcross(makeMark(*from), forwards);
}

/** Where many categories share a pixel, the walk goes from one pixel to the next, or by a part of what is
 * seen, and on to the next mark from there. From a part at the end it goes as far as there are marks. */
std::optional<KXChartItem> KXAxisChart::_obtainMarkAlong(const KXAxisChartMark& from, bool forwards,
                                                         bool isPage) const
{
    std::optional<std::uint64_t> category = _obtainCategoryBeyond(from.category, forwards, isPage);
    for (; category; category = _obtainCategoryBeside(*category, forwards))
        if (const KXChartItem item = _makeItem({from.series, *category}); hasItem(item))
            return item;
    return isPage ? _obtainMarkAlong(from, forwards, false) : std::nullopt;
}

std::optional<std::uint64_t> KXAxisChart::_obtainCategoryBeside(std::uint64_t category, bool forwards) const
{
    if (forwards ? category + 1 >= obtainShownCategoryCount() : category == 0)
        return std::nullopt;
    return forwards ? category + 1 : category - 1;
}

std::optional<KXChartItem> KXAxisChart::_obtainMarkAcross(const KXAxisChartMark& from, bool forwards) const
{
    const auto isMark = [&](std::uint64_t series) { return hasItem(_makeItem({series, from.category})); };
    if (forwards) {
        const auto found = std::find_if(std::ranges::upper_bound(getShownSeries(), from.series),
                                        getShownSeries().end(), isMark);
        return found == getShownSeries().end() ? std::nullopt
                                               : std::optional(_makeItem({*found, from.category}));
    }
    const std::reverse_iterator last(std::ranges::lower_bound(getShownSeries(), from.series));
    const auto found = std::find_if(last, getShownSeries().rend(), isMark);
    return found == getShownSeries().rend() ? std::nullopt
                                            : std::optional(_makeItem({*found, from.category}));
}

/** Category by category, in each of them series by series. */
std::optional<KXChartItem> KXAxisChart::_obtainMarkInOrder(const KXAxisChartMark& from, bool forwards) const
{
    KXAxisChartMark mark = from;
    while (true) {
        if (const std::optional<KXChartItem> beside = _obtainMarkAcross(mark, forwards))
            return beside;
        const std::optional<std::uint64_t> next = _obtainCategoryBeside(mark.category, forwards);
        if (!next)
            return std::nullopt;
        mark = {forwards ? getShownSeries().front() : getShownSeries().back(), *next};
        if (hasItem(_makeItem(mark)))
            return _makeItem(mark);
    }
}

void KXAxisChart::showItem(const KXChartItem& item)
{
    const KXAxisChartMark mark = makeMark(item);
    const UXRect& area = getMarksArea();
    const UXPoint point = _obtainHintPoint(mark);
    UXRect rect = _obtainMarkPlace(mark);
    if (uxIsEmptyRect(rect)) // not laid out where it is not seen
        rect = {point.x, point.y, 1, 1};
    const auto obtainMove = [](int start, int extent, int first, int room) {
        const int after = start + extent - (first + room);
        return start < first ? start - first : std::max(std::min(after, start - first), 0);
    };
    UXVirtualScrollView& plot = *getPlot();
    if (isVertical())
        plot.setContentOffsetX(plot.getContentOffsetX() + obtainMove(rect.x, rect.width, area.x, area.width));
    else
        plot.setContentOffsetY(plot.getContentOffsetY() +
                               obtainMove(rect.y, rect.height, area.y, area.height));
}

KXChartDataPath* KXAxisChart::createItemPath(const KXChartItem& item)
{
    const KXAxisChartMark mark = makeMark(item);
    const KXChartDataProviderUse use(*this);
    auto path = std::make_unique<KXChartDataPath>();
    path->identifier = "Mark";
    path->dimensionIndexPath = {KXAxisChartDataProvider::categoryDimension,
                                _obtainPulledCategory(mark.category)};
    if (auto* provider = use.as<KXAxisChartDataProvider>())
        path->valueIndexPath = _obtainValuePath(*provider, mark);
    return path.release();
}

std::vector<KXChartItem> KXAxisChart::findItems(const KXChartDataPath& path)
{
    // An item that is called something and belongs to no member is one of a chart without dimensions. A
    // member is one of the categories, and the value that it comes with stands at it.
    const bool namesValue = path.valueIndexPath.size() > 1;
    const KXIndexPath& indexes = namesValue ? path.valueIndexPath : path.dimensionIndexPath;
    const KXIndexPath& member = path.dimensionIndexPath;
    const auto category = indexes.size() < 2 ? std::nullopt : _findDrawnCategory(indexes[1]);
    if (!category || *category >= obtainShownCategoryCount())
        return {};
    if (member.empty() ? !path.identifier.empty()
                       : member != KXIndexPath{KXAxisChartDataProvider::categoryDimension, indexes[1]})
        return {};
    const std::vector<std::uint64_t> shown = getShownSeries();
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXAxisChartDataProvider>();
    std::vector<KXChartItem> items;
    for (const std::uint64_t series : shown) {
        const bool isNamed = !namesValue || (provider && use.isCurrent() &&
                                             _obtainValuePath(*provider, {series, *category}) == indexes);
        if (!use.isAlive())
            return {};
        if (isNamed)
            items.push_back(_makeItem({series, *category}));
    }
    return items;
}

std::vector<KXObjectID> KXAxisChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    return _obtainMarkObjectIDs(makeMark(item));
}

UXHintInfo KXAxisChart::obtainItemHint(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const KXAxisChartMark mark = makeMark(item);
    const std::optional<KXAxisChartMark> first = item.group == noFirst ? std::nullopt : std::optional(mark);
    const bool isMark = first && item.kind != categoryKind;
    UXHintInfo info = getAxisChartProperty()->getHintSettings();
    info.clearRows();
    KXChartDataProviderHintData data;
    const KXChartDataProviderUse use(*this);
    if (auto* provider = isMark ? use.as<KXAxisChartDataProvider>() : nullptr) {
        const KXIndexPath path = _obtainValuePath(*provider, mark);
        if (use.isCurrent() && !path.empty())
            data = provider->obtainHintData(this, path);
    }
    if (!use.isAlive())
        return UXHintInfo(false);
    if (data.isEmpty())
        _fillHint(info, item.index, first);
    else
        info = kxMakeHintInfo(data, info);
    return info;
}

/** Several marks of a linked highlight are those of one category. */
KXChartItem KXAxisChart::obtainExplained(const std::vector<KXChartItem>& items) const
{
    return items.size() == 1 ? items.front() : KXChartItem{categoryKind, noFirst, items.front().index};
}

double KXAxisChart::obtainDimmedOpacity() const { return getAxisChartProperty()->getDimmedOpacity(); }

/** Fills in the rows: every shown series of the category that has a value. */
void KXAxisChart::_fillHint(UXHintInfo& info, std::uint64_t category,
                            const std::optional<KXAxisChartMark>& first)
{
    const UXObjectWatcher self(this);
    const std::string title = obtainCategoryLabel(category);
    if (!self.isAlive())
        return;
    info.title = title;
    const auto addRow = [&](std::uint64_t series) {
        const double value = _obtainMarkValue({series, category});
        if (std::isnan(value))
            return;
        if (info.rows.size() >= greatestHintRowCount) {
            ++info.omittedRowCount;
            return;
        }
        std::string text = obtainValueText(series, value);
        if (const double part = getHighlightedPart(series, category); !std::isnan(part))
            text = KXHighlightedParts::tellPart(obtainValueText(series, part), text);
        if (!self.isAlive())
            return;
        UXHintRowInfo& row = info.addRow(obtainSeriesColor(series), obtainLegendSymbolStyle(series),
                                         getSeriesLabel(series), text);
        row.showSymbol = true;
        if (KXAxisChartDataView* view = obtainViewOfSeries(series))
            view->fillHintRow(row, {series, category});
        if (self.isAlive())
            row.value += _obtainBandText({series, category});
    };
    for (const std::uint64_t series : _obtainHintSeries(first))
        if (self.isAlive())
            addRow(series);
    info.enabled = info.enabled && !info.rows.empty();
    for (std::size_t i = 0; self.isAlive() && !info.rows.empty() && i < m_views.size(); ++i)
        m_views[i]->fillHintFooter(info, category);
}

UXRect KXAxisChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }

/** Linked marks never scroll a chart, which stays where its reader left it: a tab says where they are. */
void KXAxisChart::_placeLinkedTab()
{
    const std::vector<KXChartItem>& linked = getItems()->getLinked();
    const KXAxisChartEdgeTab before = m_linkedTab;
    m_linkedTab = linked.empty()
                      ? KXAxisChartEdgeTab()
                      : KXAxisChartEdgeTab::make(getMarksArea(), _obtainHintPoint(makeMark(linked.front())),
                                                 isVertical());
    if (m_linkedTab == before)
        return;
    _repaintMarks(before.rect);
    _repaintMarks(m_linkedTab.rect);
}

void KXAxisChart::_paintOverMarks(UXPainter& painter) { m_linkedTab.paint(painter); }
