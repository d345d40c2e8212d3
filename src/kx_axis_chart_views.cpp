#include "kx_axis_chart.h"

#include "kx_axis_chart_data_view.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <ranges>
#include <utility>

// The steps of the views, and what is asked of the one that shows a series.

void KXAxisChart::_keepView(std::size_t place, std::unique_ptr<KXAxisChartDataView> view)
{
    m_views.insert(m_views.begin() + static_cast<std::ptrdiff_t>(std::min(place, m_views.size())),
                   std::move(view));
}

KXAxisChartDataView* KXAxisChart::obtainViewOfSeries(std::uint64_t) const
{
    const auto found = std::ranges::find_if(m_views, [](const auto& view) { return view->canShowSeries(); });
    return found == m_views.end() ? nullptr : found->get();
}

void KXAxisChart::_customReloadMarks()
{
    for (const auto& view : m_views) {
        view->m_shownSeries.clear();
        for (const std::uint64_t series : getShownSeries())
            if (obtainViewOfSeries(series) == view.get())
                view->m_shownSeries.push_back(series);
        view->reload();
    }
}

void KXAxisChart::_layoutMarks()
{
    for (const auto& view : m_views)
        view->layout(view->getChart()->obtainPlotFrame(view->getIsOnSecondaryAxis()));
    _updateViewLooks();
    _layoutMarkLabels();
}

void KXAxisChart::_layoutMarkLabels()
{
    const UXLayoutRounds layout;
    if (!preparedAndReloadedData())
        return; // what is reloaded is laid out anew
    for (const auto& view : m_views)
        view->layoutLabels();
}

void KXAxisChart::_updateViewLooks()
{
    const UXObjectWatcher self(this);
    for (std::size_t i = 0; self.isAlive() && i < m_views.size(); ++i)
        _loadHostColors(m_views[i]->obtainSingleMarks());
    for (std::size_t i = 0; self.isAlive() && i < m_views.size(); ++i)
        m_views[i]->updateLook();
}

void KXAxisChart::_paintMarks(UXPainter& painter, const UXRect& dirtyRect)
{
    if (m_guidedCategory)
        _paintGuide(painter);
    for (const auto& view : m_views)
        view->paint(painter, dirtyRect);
}

void KXAxisChart::_paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect)
{
    for (const auto& view : m_views)
        view->paintLabels(painter, dirtyRect);
}

/** @return the mark that is nearest, of several as near the one in front */
std::optional<KXAxisChartMark> KXAxisChart::_hitMark(UXPoint point) const
{
    std::optional<KXAxisChartMark> nearest;
    double least = 0;
    for (const auto& view : std::views::reverse(m_views)) {
        const std::optional<KXAxisChartMark> mark = view->hitMark(point);
        const double distance = mark ? view->obtainHitDistance(point) : 0;
        if (!mark || (nearest && distance >= least))
            continue;
        nearest = mark;
        least = distance;
    }
    return nearest;
}

UXRect KXAxisChart::_obtainMarkPlace(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    return view ? view->obtainMarkPlace(mark) : UXRect();
}

double KXAxisChart::_obtainMarkValue(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    return view ? view->obtainValue(mark) : getValue(mark.series, mark.category);
}

UXSymbolStyle KXAxisChart::obtainLegendSymbolStyle(std::uint64_t series)
{
    const KXAxisChartDataView* view = obtainViewOfSeries(series);
    const auto own = view ? view->obtainLegendSymbolStyle(series) : std::nullopt;
    return own ? *own : KXAxisChartBase::obtainLegendSymbolStyle(series);
}

bool KXAxisChart::paintLegendSymbol(std::uint64_t series, UXPainter& painter, const UXDoubleRect& bounds,
                                    const UXColor& color) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(series);
    return view && view->paintLegendSymbol(series, painter, bounds, color);
}
