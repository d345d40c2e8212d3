#include "kx_xy_axis_chart.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <ranges>

// The steps of the views, and what is asked of the one that shows a series.

void KXXYAxisChart::_insertView(std::size_t place, std::unique_ptr<KXAxisChartDataView> view)
{
    view->m_chart = this;
    m_views.insert(m_views.begin() + static_cast<std::ptrdiff_t>(std::min(place, m_views.size())),
                   std::move(view));
}

void KXXYAxisChart::_removeView(const KXAxisChartDataView& view)
{
    std::erase_if(m_views, [&view](const auto& own) { return own.get() == &view; });
}

void KXXYAxisChart::_customReloadMarks()
{
    for (const auto& view : m_views) {
        view->m_shownSeries.clear();
        for (const std::uint64_t series : getShownSeries())
            if (obtainViewOfSeries(series) == view.get())
                view->m_shownSeries.push_back(series);
        view->reload();
    }
}

void KXXYAxisChart::_layoutMarks()
{
    const UXObjectWatcher self(this);
    for (const auto& view : m_views)
        view->layout(obtainPlotFrame(view->getIsOnSecondaryAxis()));
    _customUpdateLooks();
    // The host may have begun to replace the data; what it reloads is laid out anew.
    for (std::size_t i = 0; self.isAlive() && preparedAndReloadedData() && i < m_views.size(); ++i)
        m_views[i]->layoutLabels();
}

void KXXYAxisChart::_customUpdateLooks()
{
    const UXObjectWatcher self(this);
    for (std::size_t i = 0; self.isAlive() && i < m_views.size(); ++i)
        _loadHostColors(m_views[i]->obtainSingleMarks());
    for (std::size_t i = 0; self.isAlive() && i < m_views.size(); ++i)
        m_views[i]->updateLook();
}

void KXXYAxisChart::_paintMarks(UXPainter& painter, const UXRect& dirtyRect)
{
    for (const auto& view : m_views)
        view->paint(painter, dirtyRect);
}

void KXXYAxisChart::_paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect)
{
    for (const auto& view : m_views)
        view->paintLabels(painter, dirtyRect);
}

std::optional<KXAxisChartMark> KXXYAxisChart::_hitMark(UXPoint point) const
{
    for (const auto& view : std::views::reverse(m_views))
        if (const std::optional<KXAxisChartMark> mark = view->hitMark(point))
            return mark;
    return std::nullopt;
}

UXRect KXXYAxisChart::_obtainMarkPlace(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    return view ? view->obtainMarkPlace(mark) : UXRect();
}

std::vector<UXRect> KXXYAxisChart::_obtainMarkRects(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    return view ? view->obtainMarkRects(mark) : KXAxisChart::_obtainMarkRects(mark);
}

std::optional<std::uint64_t> KXXYAxisChart::_obtainCategoryAt(UXPoint point) const
{
    for (const auto& view : std::views::reverse(m_views))
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

double KXXYAxisChart::_obtainMarkValue(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    return view ? view->obtainValue(mark) : KXAxisChart::_obtainMarkValue(mark);
}

void KXXYAxisChart::_fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark) const
{
    if (KXAxisChartDataView* view = obtainViewOfSeries(mark.series))
        view->fillHintRow(row, mark);
}

void KXXYAxisChart::_fillHintFooter(UXHintInfo& info, std::uint64_t category) const
{
    for (const auto& view : m_views)
        view->fillHintFooter(info, category);
}

UXSymbolStyle KXXYAxisChart::obtainLegendSymbolStyle(std::uint64_t series)
{
    const KXAxisChartDataView* view = obtainViewOfSeries(series);
    const auto own = view ? view->obtainLegendSymbolStyle(series) : std::nullopt;
    return own ? *own : KXAxisChart::obtainLegendSymbolStyle(series);
}
