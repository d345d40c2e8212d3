#include "kx_xy_axis_chart.h"

#include "kx_key_definitions.h"
#include "ux/ux_label.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <ranges>
#include <utility>

// What the places of the axes add to the answers of the views.

void KXXYAxisChart::_insertView(std::size_t place, std::unique_ptr<KXAxisChartDataView> view)
{
    view->m_chart = this;
    view->m_isMadeForSecondaryAxis = view->m_isOnSecondaryAxis;
    _keepView(place, std::move(view));
}

void KXXYAxisChart::_customReloadMarks()
{
    m_positiveValues.clear();
    KXAxisChart::_customReloadMarks();
}

/** Labels keep off the note. */
void KXXYAxisChart::_layoutMarks()
{
    const UXObjectWatcher self(this);
    _placeNote();
    if (self.isAlive())
        KXAxisChart::_layoutMarks();
}

/** Lines of reference keep off the labels of marks, and no label is crossed by any of these lines. */
void KXXYAxisChart::_layoutMarkLabels()
{
    const UXLayoutRounds layout;
    KXAxisChart::_layoutMarkLabels();
    const KXAxisChartPlotFrame frame = obtainPlotFrame(false);
    for (KXAssistantLineDataView* view : {m_linesBehind.get(), m_linesInFront.get()})
        view->layout(frame);
    for (KXAssistantLineDataView* view : {m_linesBehind.get(), m_linesInFront.get()})
        view->layoutLabels();
}

std::optional<UXDoubleRect> KXXYAxisChart::obtainNoteRect() const
{
    return m_note->getVisible() ? std::optional(UXDoubleRect(m_note->getRect())) : std::nullopt;
}

void KXXYAxisChart::_paintMarks(UXPainter& painter, const UXRect& dirtyRect)
{
    m_linesBehind->paint(painter, dirtyRect);
    KXAxisChart::_paintMarks(painter, dirtyRect);
    m_linesInFront->paint(painter, dirtyRect);
}

void KXXYAxisChart::_paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect)
{
    KXAxisChart::_paintMarkLabels(painter, dirtyRect);
    m_linesBehind->paintLabels(painter, dirtyRect);
    m_linesInFront->paintLabels(painter, dirtyRect);
}

bool KXXYAxisChart::isPlaced(const KXAxisChartMark& mark) const
{
    if (!m_places.isEmpty() && m_places.obtainPlace(mark.category) == KXCategoryPlaces::none)
        return false;
    return !isLogarithmic(*_obtainValueAxis(mark.series).property) ||
           getValue(mark.series, mark.category) > 0;
}

UXSymbolStyle KXXYAxisChart::obtainLegendSymbolStyle(std::uint64_t index)
{
    const std::optional<KXAssistantLineProperty> line = _findLegendLine(index);
    return line ? KXAssistantLineDataView::obtainSymbolStyle(*line)
                : KXAxisChart::obtainLegendSymbolStyle(index);
}

std::optional<std::uint64_t> KXXYAxisChart::_obtainCategoryAt(UXPoint point) const
{
    for (const auto& view : std::views::reverse(getDataViews()))
        if (const std::optional<std::uint64_t> category = view->obtainCategoryAt(point))
            return category;
    return _obtainPlacedCategoryAt(point);
}

UXPoint KXXYAxisChart::_obtainHintPoint(const KXAxisChartMark& mark)
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    if (const auto own = view ? view->obtainHintPoint(mark) : std::nullopt)
        return *own;
    const KXAxisChartPlotFrame frame = obtainPlotFrame(isSeriesOnSecondaryAxis(mark.series));
    const double across = frame.categories.obtainPosition(obtainCategoryValue(mark.category));
    const KXAxisChartInterval room = frame.obtainAlong();
    const double along = std::clamp(std::floor(frame.values.obtainPosition(_obtainMarkValue(mark))),
                                    room.start, std::max(room.start, room.end - 1));
    const int place = uxSaturateToInt(std::floor(across)), height = uxSaturateToInt(along);
    return frame.isVertical ? UXPoint(place, height) : UXPoint(height, place);
}

std::vector<int> KXXYAxisChart::_getViewsOnOtherAxis() const
{
    std::vector<int> places;
    for (std::size_t i = 0; i < getDataViews().size(); ++i)
        if (getDataViews()[i]->m_isOnSecondaryAxis != getDataViews()[i]->m_isMadeForSecondaryAxis)
            places.push_back(static_cast<int>(i));
    return places;
}

void KXXYAxisChart::_storeViewsOnOtherAxis(const std::vector<int>& places)
{
    for (std::size_t i = 0; i < getDataViews().size(); ++i) {
        KXAxisChartDataView& view = *getDataViews()[i];
        const bool isOnOther = std::ranges::find(places, static_cast<int>(i)) != places.end();
        view.m_isOnSecondaryAxis = view.m_isMadeForSecondaryAxis != isOnOther;
    }
}

void KXXYAxisChart::_updateViewsOnOtherAxis(const std::vector<int>& places)
{
    if (_getViewsOnOtherAxis() == places)
        return;
    _storeViewsOnOtherAxis(places);
    _applyKeyEffect(UXPropertyEffect::Reload);
}

/** Documents leave the list out where it is empty, and one without it means that. */
const UXPropertyType& KXXYAxisChart::_obtainViewsType()
{
    using Self = KXXYAxisChart;
    static const UXPropertyType type = [] {
        UXPropertyType made = kxObtainDerivedKeyType<Self, std::vector<int>, &Self::_getViewsOnOtherAxis,
                                                     &Self::_storeViewsOnOtherAxis>();
        made.element = kxObtainKeyType<std::vector<int>>().element;
        made.write = [](const UXPropertyType&, UXJsonObject& object, const std::string& key,
                        const void* owner) {
            const std::vector<int> places = static_cast<const Self*>(owner)->_getViewsOnOtherAxis();
            if (!places.empty())
                kxWriteKey(&object, key, places);
        };
        made.read = [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* owner) {
            std::vector<int> places;
            const bool isRead = !UXPropertyTable::holdsKey(object, key) || kxReadKey(&object, key, places);
            if (isRead)
                static_cast<Self*>(owner)->_storeViewsOnOtherAxis(places);
            return isRead;
        };
        return made;
    }();
    return type;
}
