#include "kx_pie_grid.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double greatestGap = 12;
/** Of a place's extent: a small one has a smaller gap beside it. */
constexpr double gapShare = 0.15;
/** Radii that differ by less are equal. */
constexpr double noise = 1e-6;

} // namespace

KXPieGrid KXPieGrid::divide(const UXDoubleRect& area, std::size_t count, const UXDoubleSize& shape,
                            double captionHeight)
{
    const double extent = std::sqrt(std::max(area.width * area.height, 0.0) / static_cast<double>(count));
    const double gap = std::min(greatestGap, gapShare * extent);
    KXPieGrid best{area, 1, count, gap};
    double largest = -1;
    for (std::size_t columns = count; columns > 0; --columns) {
        const KXPieGrid grid{area, columns, (count + columns - 1) / columns, gap};
        const UXDoubleRect place = grid.obtainPlace(0);
        const double radius = std::min(place.width / std::max(shape.width, noise),
                                       (place.height - captionHeight) / std::max(shape.height, noise));
        if (radius >= largest - noise) { // of equals the one whose rows are fuller
            largest = radius;
            best = grid;
        }
    }
    return best;
}

UXDoubleRect KXPieGrid::obtainPlace(std::size_t index) const
{
    // Whole units, so that no sum is beyond the area.
    const auto obtainExtent = [&](double whole, std::size_t count) {
        const auto places = static_cast<double>(count);
        return std::max(std::floor((whole - gap * (places - 1)) / places), 0.0);
    };
    const double width = obtainExtent(area.width, columnCount), height = obtainExtent(area.height, rowCount);
    const std::size_t row = index / columnCount, column = index % columnCount;
    return {area.x + (width + gap) * static_cast<double>(column),
            area.y + (height + gap) * static_cast<double>(row), width, height};
}
