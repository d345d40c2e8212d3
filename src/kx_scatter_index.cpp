#include "kx_scatter_index.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

/** Points that a cell should hold, and the bounds of its extent, in logical units. */
constexpr double cellCount = 4, leastExtent = 2, greatestExtent = 64;

/** What makes a point the nearest one, the less the nearer: how far its edge is, how large it is, and how far
 * its centre. */
using Nearness = std::tuple<double, double, double>;

} // namespace

void KXScatterIndex::clear()
{
    m_starts.clear();
    m_points.clear();
}

std::size_t KXScatterIndex::_findColumn(double x) const
{
    return static_cast<std::size_t>(
        std::clamp((x - m_area.x) / m_extent, 0.0, static_cast<double>(m_columns - 1)));
}

std::size_t KXScatterIndex::_findRow(double y) const
{
    return static_cast<std::size_t>(
        std::clamp((y - m_area.y) / m_extent, 0.0, static_cast<double>(m_rows - 1)));
}

void KXScatterIndex::build(const KXScatterLayout& layout, const UXDoubleRect& area)
{
    // 1. Cells for a few points each.
    const double size = std::max(area.width, 1.0) * std::max(area.height, 1.0);
    const double count = std::max(static_cast<double>(layout.getCount()), 1.0);
    m_area = area;
    m_extent = std::clamp(std::sqrt(size * cellCount / count), leastExtent, greatestExtent);
    m_columns = static_cast<std::size_t>(std::max(std::ceil(area.width / m_extent), 1.0));
    m_rows = static_cast<std::size_t>(std::max(std::ceil(area.height / m_extent), 1.0));

    // 2. Count those of each cell, then give each its place there.
    std::vector<std::uint32_t> cells(layout.getCount());
    m_starts.assign(m_columns * m_rows + 1, 0);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        cells[i] = static_cast<std::uint32_t>(_findCell(layout.centres[i]));
        ++m_starts[cells[i] + 1];
    }
    for (std::size_t cell = 1; cell < m_starts.size(); ++cell)
        m_starts[cell] += m_starts[cell - 1];
    std::vector<std::uint32_t> places(m_starts.begin(), m_starts.end() - 1);
    m_points.resize(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
        m_points[places[cells[i]]++] = static_cast<std::uint32_t>(i);
}

std::optional<std::size_t> KXScatterIndex::findNearest(const KXScatterLayout& layout,
                                                       const UXDoublePoint& place, double reach) const
{
    if (isEmpty())
        return std::nullopt;
    const double greatestRadius = layout.greatestDiameter / 2;
    const auto column = static_cast<std::int64_t>(_findColumn(place.x)),
               row = static_cast<std::int64_t>(_findRow(place.y));
    std::optional<std::size_t> nearest;
    Nearness best{reach, greatestRadius, reach + greatestRadius};
    const auto look = [&](std::int64_t x, std::int64_t y) {
        if (x < 0 || y < 0 || std::cmp_greater_equal(x, m_columns) || std::cmp_greater_equal(y, m_rows))
            return;
        const std::size_t cell = static_cast<std::size_t>(y) * m_columns + static_cast<std::size_t>(x);
        for (std::uint32_t i = m_starts[cell]; i < m_starts[cell + 1]; ++i) {
            const std::size_t point = m_points[i];
            const double dx = layout.centres[point].x - place.x, dy = layout.centres[point].y - place.y;
            const double distance = std::sqrt(dx * dx + dy * dy), radius = layout.obtainDiameter(point) / 2;
            // Of equal ones the last, which is drawn over the others.
            const Nearness own{std::max(distance - radius, 0.0), radius, distance};
            if (own < best || (own == best && (!nearest || point > *nearest))) {
                best = own;
                nearest = point;
            }
        }
    };
    // Ring by ring, until all that is left is too far away.
    for (std::int64_t ring = 0;; ++ring) {
        const double least = static_cast<double>(ring - 1) * m_extent; // to what the ring holds
        const auto& [outside, radius, distance] = best;
        if (least > outside + greatestRadius || (layout.diameters.empty() && nearest && least > distance))
            return nearest;
        for (std::int64_t x = column - ring; x <= column + ring; ++x) {
            look(x, row - ring);
            if (ring > 0)
                look(x, row + ring);
        }
        for (std::int64_t y = row - ring + 1; y < row + ring; ++y) {
            look(column - ring, y);
            look(column + ring, y);
        }
    }
}

std::vector<std::uint32_t> KXScatterIndex::findInside(const KXScatterLayout& layout,
                                                      const UXDoubleRect& rect) const
{
    std::vector<std::uint32_t> found;
    if (isEmpty())
        return found;
    const std::size_t left = _findColumn(rect.x), right = _findColumn(rect.x + rect.width);
    const std::size_t bottom = _findRow(rect.y + rect.height);
    for (std::size_t row = _findRow(rect.y); row <= bottom; ++row)
        for (std::uint32_t i = m_starts[row * m_columns + left]; i < m_starts[row * m_columns + right + 1];
             ++i) {
            const UXDoublePoint& centre = layout.centres[m_points[i]];
            if (centre.x >= rect.x && centre.x <= rect.x + rect.width && centre.y >= rect.y &&
                centre.y <= rect.y + rect.height)
                found.push_back(m_points[i]);
        }
    std::ranges::sort(found);
    return found;
}
