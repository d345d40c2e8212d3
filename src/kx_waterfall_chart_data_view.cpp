#include "kx_waterfall_chart_data_view.h"

#include "kx_bar_layout.h"
#include "kx_chart_data_format.h"
#include "kx_percentages.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_painter.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double connectorWidth = 1; // logical units
constexpr UXColor connectorColor(150, 150, 156);
/** Of the teeth of a torn foot, in logical units. */
constexpr double footLength = 6, toothWidth = 8;
constexpr int decimals = 1; // of a percentage
constexpr double whole = 100;

std::string formatShare(const KXWaterfallStep& step)
{
    if (!(step.start > 0))
        return "--";
    const double scale = std::pow(10.0, decimals), share = std::abs(step.value / step.start) * whole;
    const std::string text = kxFormatPartOfWhole(std::round(share * scale) / scale, std::abs(step.value),
                                                 decimals);
    return step.value < 0 ? "-" + text : step.value > 0 ? "+" + text : text;
}

} // namespace

KXWaterfallChartDataView::KXWaterfallChartDataView() = default;
KXWaterfallChartDataView::~KXWaterfallChartDataView() = default;

void KXWaterfallChartDataView::takeSteps(KXWaterfallSteps steps, bool startsAtZero)
{
    m_steps = std::move(steps);
    m_startsAtZero = startsAtZero;
    m_spans.clear();
    m_spans.reserve(m_steps.steps.size());
    for (const KXWaterfallStep& step : m_steps.steps)
        m_spans.push_back({step.from, step.to});
    m_connectors.clear();
    m_feet.clear();
}

KXWaterfallChartDataView::Series KXWaterfallChartDataView::obtainSeries(const KXWaterfallStep& step)
{
    if (step.kind == KXWaterfallStep::Kind::Total || step.kind == KXWaterfallStep::Kind::End)
        return Total;
    return step.value < 0 ? Decrease : Increase;
}

bool KXWaterfallChartDataView::placesItself() const { return true; }
KXAxisChartStacking KXWaterfallChartDataView::obtainStacking() const { return KXAxisChartStacking::Floating; }
bool KXWaterfallChartDataView::shouldIncludeZero() const { return m_startsAtZero; }

std::optional<KXAxisChartValueRange> KXWaterfallChartDataView::obtainValueRange() const
{
    KXValueExtremes changes, totals;
    for (const KXWaterfallStep& step : m_steps.steps) {
        if (std::isnan(step.value))
            continue;
        if (obtainSeries(step) == Total) {
            totals.take({step.to, step.to});
            continue;
        }
        changes.take({std::min(step.from, step.to), std::max(step.from, step.to)});
    }
    if (m_startsAtZero || changes.isEmpty())
        changes.take(totals);
    if (changes.isEmpty())
        return std::nullopt;
    return KXAxisChartValueRange{changes.min, changes.max, changes.min, changes.max};
}

KXAxisChartStacks KXWaterfallChartDataView::_makeStacks() const
{
    KXAxisChartStacks stacks = KXBarChartDataView::_makeStacks();
    for (KXAxisChartStacks::Series& series : stacks.series)
        series.spans = m_spans;
    return stacks;
}

void KXWaterfallChartDataView::layout(const KXAxisChartPlotFrame& frame)
{
    KXBarChartDataView::layout(frame);
    _placeConnectors();
}

/** Lines stand at the running totals, from the end of each bar to the start of the next one, over steps that
 * have none. */
void KXWaterfallChartDataView::_placeConnectors()
{
    m_connectors.clear();
    if (isDense() || getSlots().empty())
        return;
    const KXBarPlane& plane = getPlane();
    const std::vector<KXWaterfallStep>& steps = m_steps.steps;
    double from = plane.obtainAcross().start;
    std::optional<double> level;
    if (const std::uint64_t first = getSlots().front().category; first > 0 && first <= steps.size())
        level = steps[first - 1].to;
    const auto connect = [&](double to) {
        const std::optional<KXAxisChartInterval> along = level ? plane.placeAlong(*level, *level)
                                                               : std::nullopt;
        if (!along || to <= from)
            return;
        const double place = std::floor(along->start - connectorWidth / 2 + 0.5);
        m_connectors.push_back(plane.makeRect({from, to}, {place, place + connectorWidth}));
    };
    for (const KXBarSlot& slot : getSlots()) {
        if (slot.category >= steps.size())
            return;
        const KXWaterfallStep& step = steps[slot.category];
        // A step that changes nothing would leave a hole. A total of zero leads to another level.
        const bool isLevel = obtainSeries(step) != Total && step.from == step.to;
        if (slot.firstBar == slot.endBar || isLevel) {
            if (!level && !std::isnan(step.value))
                level = step.to;
            continue;
        }
        const KXAxisChartInterval across = plane.obtainAcross(getBars()[slot.firstBar].rect);
        connect(across.start);
        from = across.end;
        level = step.to;
    }
    if (getSlots().back().category + 1 < steps.size())
        connect(plane.obtainAcross().end);
}

/** Totals whose zero is out of sight end in teeth. */
void KXWaterfallChartDataView::_finishBars(std::vector<KXBar>& bars)
{
    m_feet.clear();
    const KXBarPlane& plane = getPlane();
    const KXAxisChartInterval room = plane.obtainAlong();
    const double zero = plane.values.obtainPosition(0);
    if (m_startsAtZero || isDense() || (zero >= room.start && zero <= room.end))
        return;
    for (std::size_t i = 0; i < bars.size(); ++i) {
        if (bars[i].mark.series != Total)
            continue;
        KXAxisChartInterval along = plane.obtainAlong(bars[i].rect);
        const double length = std::floor(std::min(footLength, along.obtainLength() / 2));
        const bool isAtStart = zero < room.start;
        const double from = isAtStart ? along.start + length : along.end - length;
        m_feet.push_back({i, from, isAtStart ? along.start : along.end});
        (isAtStart ? along.start : along.end) = from;
        bars[i].rect = plane.makeRect(plane.obtainAcross(bars[i].rect), along);
    }
}

void KXWaterfallChartDataView::paint(UXPainter& painter, const UXRect& dirtyRect) const
{
    if (m_showsConnectors && !m_connectors.empty()) {
        painter.setColor(getChart()->obtainTextColor(std::nullopt, connectorColor));
        painter.drawRects(m_connectors);
    }
    KXBarChartDataView::paint(painter, dirtyRect);
    for (const Foot& foot : m_feet)
        _paintFoot(painter, foot);
}

void KXWaterfallChartDataView::_paintFoot(UXPainter& painter, const Foot& foot) const
{
    const KXBar& bar = getBars()[foot.bar];
    KXAxisChartPlotFrame device = getPlane();
    device.takePixels(painter.getDeviceTransform());
    const KXAxisChartInterval across = device.obtainAcross(device.snapAcross(bar.rect));
    const double count = std::max(std::round(across.obtainLength() / toothWidth), 1.0);
    const double width = across.obtainLength() / count;
    painter.setColor(getChart()->obtainMarkColor(bar.mark, obtainBarColor(bar.mark)));
    const auto makePoint = [&](double place, double along) { return device.makePoint(place, along); };
    const UXDoublePoint start = makePoint(across.start, foot.from);
    painter.setStartPoint(start.x, start.y);
    for (double i = 0; i < count; ++i)
        for (const UXDoublePoint& point : {makePoint(across.start + (i + 0.5) * width, foot.to),
                                           makePoint(across.start + (i + 1) * width, foot.from)})
            painter.addLinePath(point.x, point.y);
    painter.closePath();
    painter.fill();
}

void KXWaterfallChartDataView::fillHintFooter(UXHintInfo& info, std::uint64_t category)
{
    if (category >= m_steps.steps.size())
        return;
    const KXWaterfallStep& step = m_steps.steps[category];
    const KXChartDataFormat& format = *getChart()->getYDataFormat();
    std::vector<std::pair<const char*, std::string>> rows;
    if (step.kind == KXWaterfallStep::Kind::Others)
        rows.emplace_back("Members", std::to_string(m_steps.gathered[step.member].size()));
    if (obtainSeries(step) != Total) {
        rows.emplace_back("Share of the start", formatShare(step));
        rows.emplace_back("Before", format.formatNumber(step.from));
        rows.emplace_back("After", format.formatNumber(step.to));
    }
    // Asking for words comes last, as it may destroy the chart.
    for (const auto& [label, text] : rows)
        info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, uxLocalizeString(label), text).showSymbol =
            false;
}

std::string KXWaterfallChartDataView::customSerializeTypeID() { return "KXWaterfallChartDataView"; }
