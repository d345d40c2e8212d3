#pragma once

#include "kx_export.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

/** @return whether two texts are too near to be read apart: they share a point, or less than gap lies between
 * them in one line */
[[nodiscard]] KX_EXPORT bool kxAreTooNear(const UXDoubleRect& a, const UXDoubleRect& b, double gap);

/** Rectangles that are taken, by the cells of a grid that they touch, so that a place is compared with those
 * around it alone. */
class KX_EXPORT KXCollisionGrid {
public:
    static constexpr std::size_t noOwner = (std::numeric_limits<std::size_t>::max)();

    /** @param area where most of the rectangles are; what lies beside it belongs to the cells at its edges */
    explicit KXCollisionGrid(const UXDoubleRect& area);

    /** @param gap the room that it keeps at its sides
     *  @param owner whose it is, who may place on it */
    void add(const UXDoubleRect& rect, double gap, std::size_t owner = noOwner);
    /** @return whether rect is too near to none but owner's */
    bool isFree(const UXDoubleRect& rect, std::size_t owner = noOwner) const;
    /** @return whose rectangles hold the point, in the order in which they were added */
    std::vector<std::size_t> findOwners(const UXDoublePoint& point) const;

private:
    struct Taken {
        UXDoubleRect rect;
        double gap;
        std::size_t owner;
    };
    /** Cells from left and top up to right and bottom, without these. */
    struct Cells {
        std::size_t left, top, right, bottom;
    };

    Cells _findCells(const UXDoubleRect& rect, double gap) const;
    void _enter(std::size_t index);
    bool _isTooNear(const Taken& taken, const UXDoubleRect& rect, std::size_t owner) const;

    UXDoubleRect m_area;
    std::size_t m_columnCount = 1, m_rowCount = 1;
    double m_greatestGap = 0;
    std::vector<Taken> m_taken;
    std::vector<std::vector<std::size_t>> m_cells; // of m_taken, row by row; empty as long as these are few
};
