#include "kx_axis_chart.h"

#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// What series have in common at one place: the order in which a hint tells them, and the line that guides the
// eye there.

namespace {

/** The thin line through what is explained, and what its pixels may reach over it. */
constexpr UXColor guideColor(150, 150, 156);
constexpr double guideWidth = 1;
constexpr int guideReach = 2;

} // namespace

bool KXAxisChart::_drawsSeriesAsOne() const
{
    return std::ranges::any_of(m_views, [](const auto& view) {
        return view->drawsSeriesAsOne() && !view->getShownSeries().empty();
    });
}

double KXAxisChart::_obtainPlaceAlong(const KXAxisChartMark& mark) const
{
    const KXAxisChartDataView* view = obtainViewOfSeries(mark.series);
    if (const auto own = view ? view->obtainHintPoint(mark) : std::nullopt)
        return isVertical() ? own->y : own->x;
    return view ? view->getChart()->obtainValueScale(mark.series).obtainPosition(_obtainMarkValue(mark)) : 0;
}

/** @return where series are read together, the one that lies next to a point of the plot's space */
std::optional<std::uint64_t> KXAxisChart::_obtainFirstSeries(UXPoint point, std::uint64_t category) const
{
    std::optional<std::uint64_t> nearest;
    double least = std::numeric_limits<double>::infinity();
    if (!_drawsSeriesAsOne())
        return nearest;
    for (const std::uint64_t series : getShownSeries()) {
        if (std::isnan(_obtainMarkValue({series, category})))
            continue;
        const double distance = std::abs(_obtainPlaceAlong({series, category}) -
                                         (isVertical() ? point.y : point.x));
        if (distance < least) {
            least = distance;
            nearest = series;
        }
    }
    return nearest;
}

/** The first one comes first. Where series are read together, those that lie nearer to it come earlier. */
std::vector<std::uint64_t> KXAxisChart::_obtainHintSeries(const std::optional<KXAxisChartMark>& first) const
{
    std::vector<std::uint64_t> order = getShownSeries();
    const auto found = first ? std::ranges::find(order, first->series) : order.end();
    if (found != order.end())
        std::rotate(order.begin(), found, found + 1);
    if (!first || !_drawsSeriesAsOne())
        return order;
    const double start = _obtainPlaceAlong(*first);
    std::vector<std::pair<double, std::size_t>>
        distances; // and places in that order, which decide among equals
    distances.reserve(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        distances.emplace_back(std::abs(_obtainPlaceAlong({order[i], first->category}) - start), i);
    std::ranges::sort(distances);
    std::vector<std::uint64_t> nearest(order.size());
    std::ranges::transform(distances, nearest.begin(),
                           [&](const auto& entry) { return order[entry.second]; });
    return nearest;
}

std::string KXAxisChart::_obtainBandText(const KXAxisChartMark& mark) const
{
    const std::vector<double>&lows = getBandLows(mark.series), &highs = getBandHighs(mark.series);
    if (mark.category >= std::min(lows.size(), highs.size()) || std::isnan(lows[mark.category]) ||
        std::isnan(highs[mark.category]))
        return {};
    return " (" + obtainValueText(mark.series, lows[mark.category]) + " \u2013 " +
           obtainValueText(mark.series, highs[mark.category]) + ")";
}

std::vector<std::uint64_t> KXAxisChart::_obtainSeriesStandingOut() const
{
    std::vector<std::uint64_t> series;
    for (const KXAxisChartMark& mark : obtainMarksStandingOut())
        series.push_back(mark.series);
    std::ranges::sort(series);
    series.erase(std::unique(series.begin(), series.end()), series.end());
    return series;
}

/** A line that stands out makes all others give way; from point to point of it only these change. */
void KXAxisChart::itemLookChanged(const KXChartItem& item)
{
    _placeLinkedTab();
    const KXAxisChartMark mark{item.group, item.index};
    if (const KXAxisChartDataView* view = obtainViewOfSeries(mark.series))
        for (const UXRect& rect : view->obtainMarkRects(mark))
            _repaintMarks(rect);
    if (!_drawsSeriesAsOne())
        return;
    std::vector<std::uint64_t> standingOut = _obtainSeriesStandingOut();
    if (standingOut != m_seriesStandingOut)
        _repaintMarks();
    m_seriesStandingOut = std::move(standingOut);
}

void KXAxisChart::itemLooksChanged()
{
    _placeLinkedTab();
    _repaintMarks();
    m_seriesStandingOut = _obtainSeriesStandingOut();
}

void KXAxisChart::itemExplained(const std::optional<KXChartItem>& item)
{
    const auto guided = item && _drawsSeriesAsOne() ? std::optional(item->index) : std::nullopt;
    if (guided == m_guidedCategory)
        return;
    _repaintGuide();
    m_guidedCategory = guided;
    _repaintGuide();
}

double KXAxisChart::_obtainGuidePlace()
{
    const std::uint64_t series = getShownSeries().empty() ? 0 : getShownSeries().front();
    const UXPoint point = _obtainHintPoint({series, m_guidedCategory.value_or(0)});
    return isVertical() ? point.x : point.y;
}

void KXAxisChart::_paintGuide(UXPainter& painter)
{
    const UXRect& area = getMarksArea();
    const double place = _obtainGuidePlace();
    painter.setColor(guideColor);
    if (isVertical())
        painter.drawVerticalLines({&place, 1}, area.y, area.getBottom(), guideWidth);
    else
        painter.drawHorizontalLines({&place, 1}, area.x, uxMaxX(area), guideWidth);
}

void KXAxisChart::_repaintGuide()
{
    if (!m_guidedCategory)
        return;
    const UXRect& area = getMarksArea();
    const int first = static_cast<int>(_obtainGuidePlace()) - guideReach, extent = 2 * guideReach + 1;
    _repaintMarks(isVertical() ? UXRect(first, area.y, extent, area.height)
                               : UXRect(area.x, first, area.width, extent));
}
