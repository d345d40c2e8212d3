#include "kx_bar_chart_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_bar_chart_property.h"
#include "kx_bar_chart_records.h"
#include "kx_density_room.h"
#include "kx_highlighted_parts.h"
#include "kx_key_definitions.h"
#include "kx_readable_color.h"
#include "kx_whiskers.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <tuple>
#include <utility>

namespace {

/** A bar can be hit as if it were at least this long and wide, in logical units. */
constexpr double leastHitExtent = 6;
/** So many colours are gathered at a time; bars that have one each are filled one by one anyway. */
constexpr std::size_t greatestBatchCount = 64;
/** Of the line around a bar that stands out, in logical units. */
constexpr double lineWidth = 1;

constexpr double leastShare = 0.1;

/** @return how far outside of interval place lies, 0 inside */
double obtainDistance(const KXAxisChartInterval& interval, double place)
{
    return std::max({interval.start - place, place - interval.end, 0.0});
}

bool isNear(const KXAxisChartInterval& interval, double place)
{
    return obtainDistance(interval, place) <= std::max(leastHitExtent - interval.obtainLength(), 0.0) / 2;
}

UXDoubleRect obtainEnlargedRect(const UXDoubleRect& rect, const KXChartItemLook& look)
{
    const double width = rect.width * look.sizeRatio, height = rect.height * look.sizeRatio;
    return {uxMidDoubleX(rect) - width / 2, uxMidDoubleY(rect) - height / 2, width, height};
}

} // namespace

KXBarChartDataView::KXBarChartDataView(std::shared_ptr<KXBarChartProperty> property)
    : m_property(property ? std::move(property) : std::make_shared<KXBarChartProperty>()),
      m_made(std::make_unique<KXBarChartRecords>())
{
}

KXBarChartDataView::~KXBarChartDataView() = default;

const std::vector<KXBar>& KXBarChartDataView::getBars() const { return m_made->layout.bars; }
const std::vector<KXBarSlot>& KXBarChartDataView::getSlots() const { return m_made->layout.slots; }
const KXBarPlane& KXBarChartDataView::getPlane() const { return m_made->plane; }
const std::vector<KXBarLabel>& KXBarChartDataView::getLabels() const { return m_made->labels; }
bool KXBarChartDataView::isDense() const { return m_made->layout.isDense; }

bool KXBarChartDataView::shouldIncludeZero() const { return true; }

double KXBarChartDataView::_obtainShare() const
{
    const double own = m_property->getBarWidth();
    return own > 0 ? std::clamp(own, leastShare, 1.0)
                   : kxObtainDensityRoom(getChart()->getAxisChartProperty()->getDataDensity()).barShare;
}

double KXBarChartDataView::obtainMinCategorySpacing() const
{
    if (obtainStacking() != KXAxisChartStacking::Plain)
        return 0;
    const double width = kxObtainDensityRoom(getChart()->getAxisChartProperty()->getDataDensity()).bar;
    return std::ceil(static_cast<double>(getShownSeries().size()) * width / _obtainShare());
}

double KXBarChartDataView::obtainOverhang() const { return 0.5; }

void KXBarChartDataView::reload()
{
    m_made->texts.clear();
    m_made->layout = {};
    m_made->shares.clear();
    m_made->whiskers.clear();
    m_made->barColors.clear();
    m_made->labels.clear();
}

void KXBarChartDataView::_finishBars(std::vector<KXBar>&) {}

void KXBarChartDataView::layout(const KXAxisChartPlotFrame& frame)
{
    KXBarPlane plane;
    static_cast<KXAxisChartPlotFrame&>(plane) = frame;
    plane.share = _obtainShare();
    m_made->labels.clear();
    placeBars(_makeStacks(), plane);
    _placeWhiskers();
}

/** Single bars show between which values theirs are thought to lie; parts of a sum do not. */
void KXBarChartDataView::_placeWhiskers()
{
    m_made->whiskers.clear();
    if (isDense() || obtainStacking() != KXAxisChartStacking::Plain)
        return;
    for (const KXBar& bar : m_made->layout.bars) {
        const std::vector<double>&lows = getChart()->getBandLows(bar.mark.series),
              &highs = getChart()->getBandHighs(bar.mark.series);
        const std::uint64_t category = bar.mark.category;
        if (category >= std::min(lows.size(), highs.size()) || std::isnan(lows[category]) ||
            std::isnan(highs[category]))
            continue;
        const KXAxisChartInterval across = m_made->plane.obtainAcross(bar.rect);
        kxAppendWhisker(m_made->whiskers, m_made->plane, (across.start + across.end) / 2, lows[category],
                        highs[category], std::min(across.obtainLength() / 2, kxGreatestWhiskerCap));
    }
}

void KXBarChartDataView::placeBars(const KXAxisChartStacks& source, const KXBarPlane& plane)
{
    m_made->plane = plane;
    m_made->layout = kxLayoutBars(source, plane);
    _finishBars(m_made->layout.bars);
    m_made->widestSlot = 0;
    for (const KXBarSlot& slot : m_made->layout.slots)
        m_made->widestSlot = std::max(m_made->widestSlot, slot.end - slot.start);
    _takeShares();
    m_made->areBarsInOrder = std::ranges::is_sorted(m_made->layout.slots, {}, &KXBarSlot::firstBar);
}

/** Of each bar the share that belongs to what is chosen elsewhere. */
void KXBarChartDataView::_takeShares()
{
    m_made->shares.clear();
    if (!getChart() || !getChart()->hasHighlightedParts())
        return;
    m_made->shares.reserve(m_made->layout.bars.size());
    for (const KXBar& bar : m_made->layout.bars) {
        const auto& [series, category] = bar.mark;
        m_made->shares.push_back(KXHighlightedParts::obtainShare(
            getChart()->getHighlightedPart(series, category), getChart()->getValue(series, category)));
    }
}

double KXBarChartDataView::obtainFullShare(std::size_t bar) const
{
    return bar < m_made->shares.size() ? m_made->shares[bar] : 1;
}

/** @return the part of a bar that is drawn in full: from where it begins on */
UXDoubleRect KXBarChartDataView::_obtainFullPart(std::size_t bar, const UXDoubleRect& rect) const
{
    if (obtainFullShare(bar) >= 1)
        return rect;
    const KXBar& own = m_made->layout.bars[bar];
    const KXBarPlane& plane = m_made->plane;
    KXAxisChartInterval along = plane.obtainAlong(rect);
    const double length = along.obtainLength() * obtainFullShare(bar);
    if (plane.growsForwards() == (own.to >= own.from))
        along.end = along.start + length;
    else
        along.start = along.end - length;
    return plane.makeRect(plane.obtainAcross(rect), along);
}

/** @return what a text on the bar is read on */
UXColor KXBarChartDataView::_obtainTextGround(std::size_t bar, const UXColor& color) const
{
    return KXHighlightedParts::obtainTextGround(color, obtainFullShare(bar),
                                                getChart()->obtainDimmedOpacity());
}

UXColor KXBarChartDataView::_obtainLight(const UXColor& color) const
{
    return KXHighlightedParts::obtainLightColor(color, getChart()->obtainDimmedOpacity());
}

std::vector<KXAxisChartMark> KXBarChartDataView::obtainSingleMarks() const
{
    std::vector<KXAxisChartMark> marks;
    if (!isDense())
        std::ranges::transform(m_made->layout.bars, std::back_inserter(marks), &KXBar::mark);
    return marks;
}

UXColor KXBarChartDataView::obtainBarColor(const KXAxisChartMark& mark) const
{
    const KXXYAxisChart& chart = *getChart();
    if (const std::optional<UXColor> color = isDense() ? std::nullopt : chart.obtainHostColor(mark))
        return *color;
    if (!m_property->getColorByItem())
        return chart.obtainSeriesColor(mark.series);
    const std::vector<UXColor> own = m_property->getItemColors();
    const std::vector<UXColor> colors = own.empty() ? chart.getDefaultColors() : own;
    return colors[mark.category % colors.size()];
}

void KXBarChartDataView::updateLook()
{
    m_made->barColors.clear();
    m_made->barColors.reserve(m_made->layout.bars.size());
    for (const KXBar& bar : m_made->layout.bars)
        m_made->barColors.push_back(obtainBarColor(bar.mark));
    // Where all bars are in full, it does not matter on which of them a label is read.
    const auto findBar = [this](const KXAxisChartMark& mark) {
        const std::vector<KXBar>& bars = m_made->layout.bars;
        return m_made->shares.empty()
                   ? std::size_t{0}
                   : static_cast<std::size_t>(std::ranges::find(bars, mark, &KXBar::mark) - bars.begin());
    };
    for (KXBarLabel& label : m_made->labels)
        if (label.mark && label.isReadOnBar)
            label.property.textColor = kxObtainReadableColor(
                _obtainTextGround(findBar(*label.mark), obtainBarColor(*label.mark)));
}

double KXBarChartDataView::_obtainPlaceAcross(UXPoint point) const
{
    // The middle of the pixel that the pointer is on.
    return (m_made->plane.isVertical ? point.x : point.y) + 0.5;
}

std::pair<std::size_t, std::size_t> KXBarChartDataView::findSlots(const KXAxisChartInterval& across) const
{
    const std::vector<KXBarSlot>& slots = m_made->layout.slots;
    const auto first = std::ranges::lower_bound(slots, across.start - m_made->widestSlot, {},
                                                &KXBarSlot::start);
    const auto end = std::ranges::upper_bound(slots, across.end, {}, &KXBarSlot::start);
    return {static_cast<std::size_t>(first - slots.begin()), static_cast<std::size_t>(end - slots.begin())};
}

std::pair<std::size_t, std::size_t> KXBarChartDataView::_findBars(const UXRect& rect) const
{
    // Bars that lie over each other have to keep their order, and one that stands out may reach anywhere.
    const std::optional<KXAxisChartMark>& hovered = getChart()->getHoveredMark();
    const bool reachesOut = hovered && getChart()->obtainMarkLook(*hovered, UXColor()).standsOut();
    if (!m_made->areBarsInOrder || reachesOut)
        return {0, m_made->layout.bars.size()};
    // Edges are moved to pixels of the device, which may be wide ones.
    const auto [first, end] = findSlots(m_made->plane.obtainAcross(UXDoubleRect(uxInflateRect(rect, 1, 1))));
    return first < end ? std::pair(m_made->layout.slots[first].firstBar, m_made->layout.slots[end - 1].endBar)
                       : std::pair(std::size_t{0}, std::size_t{0});
}

const KXBarSlot* KXBarChartDataView::findSlot(UXPoint point) const
{
    const double place = _obtainPlaceAcross(point);
    const std::vector<KXBarSlot>& slots = m_made->layout.slots;
    auto found = std::ranges::upper_bound(slots, place, {}, &KXBarSlot::start);
    if (found == slots.begin() || (--found)->end <= place)
        return nullptr;
    return &*found;
}

const KXBar* KXBarChartDataView::hitBar(UXPoint point) const
{
    const KXBarSlot* slot = findSlot(point);
    if (!slot)
        return nullptr;
    const double across = _obtainPlaceAcross(point),
                 along = (m_made->plane.isVertical ? point.y : point.x) + 0.5;
    const KXBar* nearest = nullptr;
    double least = 0;
    // Of bars on each other the last one is in front.
    for (std::size_t i = slot->endBar; i > slot->firstBar; --i) {
        const KXBar& bar = m_made->layout.bars[i - 1];
        const KXAxisChartInterval barAcross = m_made->plane.obtainAcross(bar.rect),
                                  barAlong = m_made->plane.obtainAlong(bar.rect);
        if (!isNear(barAcross, across) || !isNear(barAlong, along))
            continue;
        const double distance = obtainDistance(barAcross, across) + obtainDistance(barAlong, along);
        if (!nearest || distance < least) {
            nearest = &bar;
            least = distance;
        }
    }
    return nearest;
}

std::optional<KXAxisChartMark> KXBarChartDataView::hitMark(UXPoint point) const
{
    const KXBar* bar = hitBar(point);
    return bar ? std::optional(bar->mark) : std::nullopt;
}

UXRect KXBarChartDataView::obtainMarkPlace(const KXAxisChartMark& mark) const
{
    const auto bar = std::ranges::find(m_made->layout.bars, mark, &KXBar::mark);
    return bar == m_made->layout.bars.end() ? UXRect() : uxSurroundingRect(bar->rect);
}

std::vector<UXRect> KXBarChartDataView::obtainMarkRects(const KXAxisChartMark& mark) const
{
    // Edges are moved to pixels of the device, which may be wide ones.
    std::vector<UXRect> rects;
    const auto add = [&rects](const UXDoubleRect& rect) {
        rects.push_back(uxInflateRect(uxSurroundingRect(rect), 1, 1));
    };
    const KXChartItemLook look = getChart()->obtainMarkLook(mark, UXColor());
    for (const KXBar& bar : m_made->layout.bars)
        if (bar.mark == mark)
            add(uxUnionDoubleRect(bar.rect, obtainEnlargedRect(bar.rect, look)));
    for (const KXBarLabel& label : m_made->labels)
        if (label.mark == mark)
            add(label.rect);
    return rects;
}

/** Of merged bars the hint is about the category that is seen there. */
std::optional<std::uint64_t> KXBarChartDataView::obtainCategoryAt(UXPoint point) const
{
    const KXBarSlot* slot = isDense() ? findSlot(point) : nullptr;
    if (!slot)
        return std::nullopt;
    const KXBar* bar = hitBar(point);
    return bar ? bar->mark.category : slot->category;
}

/** The end of the bar, wherever its stack has it. */
std::optional<UXPoint> KXBarChartDataView::obtainHintPoint(const KXAxisChartMark& mark) const
{
    const auto found = std::ranges::find(m_made->layout.bars, mark, &KXBar::mark);
    if (found == m_made->layout.bars.end())
        return std::nullopt;
    const UXDoubleRect& rect = found->rect;
    const UXDoublePoint end = m_made->plane.isVertical
                                  ? UXDoublePoint(rect.x + rect.width / 2, rect.y)
                                  : UXDoublePoint(rect.x + rect.width, rect.y + rect.height / 2);
    return UXPoint(uxSaturateToInt(end.x), uxSaturateToInt(end.y));
}

void KXBarChartDataView::fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark)
{
    row.color = obtainBarColor(mark);
    if (!kxTellsPercentages(obtainStacking(), m_property->getLabelDisplayOption()))
        return;
    const KXAxisChartStacks source = _makeStacks();
    const auto found = std::ranges::find(source.series, mark.series, &KXAxisChartStacks::Series::index);
    if (found == source.series.end())
        return;
    const auto position = static_cast<std::size_t>(found - source.series.begin());
    row.value += " (" + m_made->texts.obtainPercentageText(*getChart(), source, mark, position) + ")";
}

void KXBarChartDataView::fillHintFooter(UXHintInfo& info, std::uint64_t category)
{
    _addTotal(info, category);
}

/** Bars are laid out for the device that is known to show the chart; on any other they move to its pixels. */
void KXBarChartDataView::paint(UXPainter& painter, const UXRect& dirtyRect) const
{
    KXAxisChartPlotFrame device = m_made->plane;
    device.takePixels(painter.getDeviceTransform());
    const bool moves = !isDense() && !device.hasSamePixels(m_made->plane);
    std::vector<std::pair<UXColor, std::vector<UXDoubleRect>>> batches;
    const auto drawAll = [&] {
        for (const auto& [color, rects] : batches) {
            painter.setColor(color);
            painter.drawRects(rects);
        }
        batches.clear();
    };
    std::size_t last = 0;
    const auto add = [&](const UXColor& color, const UXDoubleRect& rect) {
        if (last >= batches.size() || batches[last].first != color) {
            const auto found = std::ranges::find(batches, color,
                                                 [](const auto& batch) { return batch.first; });
            last = static_cast<std::size_t>(found - batches.begin());
            if (found == batches.end()) {
                if (batches.size() == greatestBatchCount)
                    drawAll();
                last = batches.size();
                batches.push_back({color, {}});
            }
        }
        batches[last].second.push_back(rect);
    };
    std::vector<std::tuple<std::size_t, UXDoubleRect, KXChartItemLook>> standingOut;
    const bool isHighlighting = getChart()->isHighlighting();
    const auto [first, end] = _findBars(dirtyRect);
    for (std::size_t i = first; i < end; ++i) {
        const KXBar& bar = m_made->layout.bars[i];
        KXChartItemLook look{m_made->barColors[i]};
        if (isHighlighting)
            look = getChart()->obtainMarkLook(bar.mark, m_made->barColors[i]);
        const UXDoubleRect rect = moves ? device.snapAcross(bar.rect) : bar.rect;
        if (look.standsOut()) {
            standingOut.emplace_back(i, rect, look);
            continue;
        }
        if (obtainFullShare(i) >= 1) {
            add(look.fill, rect);
            continue;
        }
        add(_obtainLight(look.fill), rect);
        add(look.fill, _obtainFullPart(i, rect));
    }
    drawAll();
    for (const auto& [bar, rect, look] : standingOut)
        _paintStandingOut(painter, bar, rect, look);
    if (!m_made->whiskers.empty()) {
        painter.setColor(getChart()->obtainTextColor(std::nullopt, kxWhiskerColor));
        painter.setLineWidth(kxWhiskerWidth);
        painter.drawPolyline(m_made->whiskers);
    }
}

/** Over the others, which it may reach over. */
void KXBarChartDataView::_paintStandingOut(UXPainter& painter, std::size_t bar, const UXDoubleRect& rect,
                                           const KXChartItemLook& look) const
{
    const UXDoubleRect drawn = obtainEnlargedRect(rect, look);
    const UXDoubleRect part = _obtainFullPart(bar, drawn);
    if (obtainFullShare(bar) < 1) {
        painter.setColor(_obtainLight(look.fill));
        painter.drawRects({&drawn, 1});
    }
    painter.setColor(look.fill);
    painter.drawRects({&part, 1});
    if (look.line.alpha <= 0)
        return;
    painter.setColor(look.line);
    painter.setLineWidth(lineWidth);
    painter.addRectanglePath(drawn.x + lineWidth / 2, drawn.y + lineWidth / 2,
                             std::max(drawn.width - lineWidth, 0.0), std::max(drawn.height - lineWidth, 0.0));
    painter.stroke();
}

const UXPropertyTable& KXBarChartDataView::obtainPropertyTable()
{
    using Self = KXBarChartDataView;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_barChartProperty", uxObtainNestedObjectType, m_property, "the bars")};
    static const UXPropertyTable table("KXBarChartDataView", &KXAxisChartDataView::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

KX_DEFINE_DOCUMENT(KXBarChartDataView, KXAxisChartDataView)
