#include "kx_collision_grid.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>

namespace {

/** The extent of a cell, about that of a label. */
constexpr double cellExtent = 48;
constexpr double greatestCellCount = 128; // either way
/** Fewer are compared one by one. */
constexpr std::size_t fewestForCells = 24;

std::size_t obtainCellCount(double extent)
{
    return static_cast<std::size_t>(std::clamp(std::ceil(extent / cellExtent), 1.0, greatestCellCount));
}

/** @return the cell of a place; the first one for NaN */
std::size_t findCell(double distance, double extent, std::size_t count)
{
    const double cell = std::floor(distance / extent * static_cast<double>(count));
    return cell > 0 ? static_cast<std::size_t>(std::min(cell, static_cast<double>(count - 1))) : 0;
}

} // namespace

// Hosts may refer to it, on Windows too
constexpr std::size_t KXCollisionGrid::noOwner;

bool kxAreTooNear(const UXDoubleRect& a, const UXDoubleRect& b, double gap)
{
    return a.x < b.x + b.width + gap && b.x < a.x + a.width + gap && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

KXCollisionGrid::KXCollisionGrid(const UXDoubleRect& area)
    : m_area(area), m_columnCount(obtainCellCount(area.width)), m_rowCount(obtainCellCount(area.height))
{
}

KXCollisionGrid::Cells KXCollisionGrid::_findCells(const UXDoubleRect& rect, double gap) const
{
    const auto columnOf = [this](double x) { return findCell(x - m_area.x, m_area.width, m_columnCount); };
    const auto rowOf = [this](double y) { return findCell(y - m_area.y, m_area.height, m_rowCount); };
    return {columnOf(rect.x - gap), rowOf(rect.y), columnOf(rect.x + rect.width + gap) + 1,
            rowOf(rect.y + rect.height) + 1};
}

void KXCollisionGrid::_enter(std::size_t index)
{
    const Cells cells = _findCells(m_taken[index].rect, 0);
    for (std::size_t row = cells.top; row < cells.bottom; ++row)
        for (std::size_t column = cells.left; column < cells.right; ++column)
            m_cells[row * m_columnCount + column].push_back(index);
}

void KXCollisionGrid::add(const UXDoubleRect& rect, double gap, std::size_t owner)
{
    m_taken.push_back({rect, gap, owner});
    m_greatestGap = std::max(m_greatestGap, gap);
    if (m_taken.size() < fewestForCells)
        return;
    if (!m_cells.empty()) {
        _enter(m_taken.size() - 1);
        return;
    }
    m_cells.resize(m_columnCount * m_rowCount);
    for (std::size_t i = 0; i < m_taken.size(); ++i)
        _enter(i);
}

bool KXCollisionGrid::_isTooNear(const Taken& taken, const UXDoubleRect& rect, std::size_t owner) const
{
    const bool isOwn = owner != noOwner && taken.owner == owner;
    return !isOwn && kxAreTooNear(taken.rect, rect, taken.gap);
}

bool KXCollisionGrid::isFree(const UXDoubleRect& rect, std::size_t owner) const
{
    if (m_cells.empty())
        return std::ranges::none_of(m_taken,
                                    [&](const Taken& taken) { return _isTooNear(taken, rect, owner); });
    const Cells cells = _findCells(rect, m_greatestGap);
    for (std::size_t row = cells.top; row < cells.bottom; ++row)
        for (std::size_t column = cells.left; column < cells.right; ++column)
            for (const std::size_t index : m_cells[row * m_columnCount + column])
                if (_isTooNear(m_taken[index], rect, owner))
                    return false;
    return true;
}

std::vector<std::size_t> KXCollisionGrid::findOwners(const UXDoublePoint& point) const
{
    std::vector<std::size_t> owners;
    const auto take = [&](const Taken& taken) {
        if (uxPointInDoubleRect(point, taken.rect))
            owners.push_back(taken.owner);
    };
    if (m_cells.empty()) {
        std::ranges::for_each(m_taken, take);
        return owners;
    }
    const Cells cells = _findCells({point.x, point.y, 0, 0}, 0);
    for (const std::size_t index : m_cells[cells.top * m_columnCount + cells.left])
        take(m_taken[index]);
    return owners;
}
