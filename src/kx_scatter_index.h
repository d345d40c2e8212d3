#pragma once

#include "kx_export.h"
#include "kx_scatter_layout.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

/** Points by the cells of a grid, so that what lies somewhere is found without a look at all of them. */
class KX_EXPORT KXScatterIndex {
public:
    /** @param area where points are looked for; the layout must stay as it is */
    void build(const KXScatterLayout& layout, const UXDoubleRect& area);
    void clear();
    bool isEmpty() const { return m_starts.empty(); }

    /** @return the point that lies next to a place, its edge at most reach from it: of several that hold the
     * place the smallest, of those the one with the next centre */
    std::optional<std::size_t> findNearest(const KXScatterLayout& layout, const UXDoublePoint& place,
                                           double reach) const;
    /** @return the points whose centres are in a rectangle, ascending */
    std::vector<std::uint32_t> findInside(const KXScatterLayout& layout, const UXDoubleRect& rect) const;

private:
    std::size_t _findColumn(double x) const;
    std::size_t _findRow(double y) const;
    std::size_t _findCell(const UXDoublePoint& place) const
    {
        return _findRow(place.y) * m_columns + _findColumn(place.x);
    }

    UXDoubleRect m_area;
    double m_extent = 1; // of a cell
    std::size_t m_columns = 0, m_rows = 0;
    std::vector<std::uint32_t> m_starts; // of the cells in m_points, and their end
    std::vector<std::uint32_t> m_points; // cell by cell, ascending
};
