#include "kx_bar_layout.h"

#include "kx_dense_bars.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** With fewer device pixels a category has no room for a bar and a gap that look alike everywhere. */
constexpr double leastPixelsPerCategory = 2;
/** Between the bars of a group, as a part of their width, and at most, in logical units. */
constexpr double gapShare = 0.1;
constexpr double greatestGap = 4;
constexpr double leastWidthBesideGap = 3; // device pixels

KXBarLayout layoutEachCategory(const KXAxisChartStacks& source, const KXBarPlane& plane,
                               const KXBarWidths& widths)
{
    KXBarLayout layout;
    std::vector<KXAxisChartStackSegment> pieces;
    for (std::uint64_t place = source.first; place < source.end; ++place) {
        const std::uint64_t category = source.obtainCategory(place);
        source.obtainPieces(category, pieces);
        const double centre = plane.categories.obtainPosition(source.obtainCategoryValue(place));
        const double left = std::round(plane.toPixel(centre) - widths.total / 2);
        KXBarSlot slot{centre - plane.spacing / 2, centre + plane.spacing / 2, category, layout.bars.size(),
                       0};
        for (const KXAxisChartStackSegment& piece : pieces) {
            const std::optional<KXAxisChartInterval> along = plane.placeAlong(piece.from, piece.to);
            if (!along)
                continue;
            const double start = left + static_cast<double>(piece.position) * widths.pitch;
            const KXAxisChartInterval across{plane.fromPixel(start), plane.fromPixel(start + widths.width)};
            layout.bars.push_back({{source.series[piece.position].index, category},
                                   piece.value,
                                   piece.from,
                                   piece.to,
                                   plane.makeRect(across, *along)});
        }
        slot.endBar = layout.bars.size();
        layout.slots.push_back(slot);
    }
    return layout;
}

} // namespace

KXBarWidths kxObtainBarWidths(const KXBarPlane& plane, std::size_t count)
{
    // A finer device shows the same bars, only finer; a coarser one has no room for as many.
    const double leastRoom = plane.spacing * std::min(plane.pixelScale, 1.0);
    const auto bars = static_cast<double>(std::max<std::size_t>(count, 1));
    if (!(leastRoom >= leastPixelsPerCategory) || std::floor(leastRoom * plane.share) < bars)
        return {};
    const double most = std::max(std::floor(KXBarPlane::greatestWidth * plane.pixelScale), 1.0);
    const double taken = std::floor(plane.spacing * plane.pixelScale * plane.share);

    // Bars of one or two pixels touch each other: a gap would take a third of the room from them.
    const double wanted = std::min(std::round(gapShare * taken / bars), greatestGap * plane.pixelScale);
    const bool hasGap = bars > 1 && (taken - (bars - 1) * wanted) / bars >= leastWidthBesideGap;
    const double gap = hasGap ? std::floor(wanted) : 0;
    const double width = std::min(std::floor((taken - (bars - 1) * gap) / bars), most);
    return {width, width + gap, bars * width + (bars - 1) * gap};
}

KXBarLayout kxLayoutBars(const KXAxisChartStacks& source, const KXBarPlane& plane)
{
    if (uxIsEmptyRect(plane.area) || source.series.empty() || source.first >= source.end ||
        !(plane.pixelScale > 0) || !(plane.spacing >= 0))
        return {};
    const bool isGrouped = source.form == KXAxisChartStacking::Plain;
    const KXBarWidths widths = kxObtainBarWidths(plane, isGrouped ? source.series.size() : 1);
    if (widths.width == 0)
        return kxLayoutDenseBars(source, plane);
    if (isGrouped)
        return layoutEachCategory(source, plane, widths);
    return layoutEachCategory(source, plane, {widths.width, 0, widths.total});
}
