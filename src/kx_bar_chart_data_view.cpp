#include "kx_bar_chart_data_view.h"

#include "ux/ux_painter.h"

#include <algorithm>
#include <utility>

namespace {

/** A bar can be hit as if it were at least this long and wide, in logical units. */
constexpr double leastHitExtent = 6;
/** So many colours are gathered at a time; bars that have one each are filled one by one anyway. */
constexpr std::size_t greatestBatchCount = 64;

/** @return how far outside of stretch place lies, 0 inside */
double obtainDistance(const KXAxisChartStretch& stretch, double place)
{
    return std::max({stretch.start - place, place - stretch.end, 0.0});
}

bool isNear(const KXAxisChartStretch& stretch, double place)
{
    return obtainDistance(stretch, place) <= std::max(leastHitExtent - stretch.obtainLength(), 0.0) / 2;
}

} // namespace

KXBarChartDataView::KXBarChartDataView() = default;
KXBarChartDataView::~KXBarChartDataView() = default;

void KXBarChartDataView::layout(const KXAxisChartStacks& source, const KXBarPlane& plane)
{
    m_plane = plane;
    m_layout = kxLayoutBars(source, plane);
    m_widestSlot = 0;
    for (const KXBarSlot& slot : m_layout.slots)
        m_widestSlot = std::max(m_widestSlot, slot.end - slot.start);
}

void KXBarChartDataView::clear() { m_layout = {}; }

double KXBarChartDataView::_obtainPlaceAcross(UXPoint point) const
{
    // The middle of the pixel that the pointer is on.
    return (m_plane.isVertical ? point.x : point.y) + 0.5;
}

std::pair<std::size_t, std::size_t> KXBarChartDataView::findSlots(const KXAxisChartStretch& across) const
{
    const std::vector<KXBarSlot>& slots = m_layout.slots;
    const auto first = std::ranges::lower_bound(slots, across.start - m_widestSlot, {}, &KXBarSlot::start);
    const auto end = std::ranges::upper_bound(slots, across.end, {}, &KXBarSlot::start);
    return {static_cast<std::size_t>(first - slots.begin()), static_cast<std::size_t>(end - slots.begin())};
}

const KXBarSlot* KXBarChartDataView::findSlot(UXPoint point) const
{
    const double place = _obtainPlaceAcross(point);
    const std::vector<KXBarSlot>& slots = m_layout.slots;
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
    const double across = _obtainPlaceAcross(point), along = (m_plane.isVertical ? point.y : point.x) + 0.5;
    const KXBar* nearest = nullptr;
    double least = 0;
    // Of bars on each other the last one is in front.
    for (std::size_t i = slot->endBar; i > slot->firstBar; --i) {
        const KXBar& bar = m_layout.bars[i - 1];
        const KXAxisChartStretch barAcross = m_plane.obtainAcross(bar.rect),
                                 barAlong = m_plane.obtainAlong(bar.rect);
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

void KXBarChartDataView::paint(UXPainter& painter, const ColorOf& colorOf) const
{
    std::vector<std::pair<UXColor, std::vector<UXDoubleRect>>> batches;
    const auto drawAll = [&] {
        for (const auto& [color, rects] : batches) {
            painter.setColor(color);
            painter.drawRects(rects);
        }
        batches.clear();
    };
    std::size_t last = 0;
    for (std::size_t i = 0; i < m_layout.bars.size(); ++i) {
        const UXColor color = colorOf(i);
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
        batches[last].second.push_back(m_layout.bars[i].rect);
    }
    drawAll();
}
