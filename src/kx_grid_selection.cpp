#include "kx_grid_selection.h"

#include <algorithm>
#include <utility>

void KXGridSelection::setExtent(std::uint64_t rowCount, std::uint64_t columnCount)
{
    if (rowCount == m_rowCount && columnCount == m_columnCount)
        return;
    m_rowCount = rowCount;
    m_columnCount = columnCount;
    clear();
}

void KXGridSelection::clear()
{
    m_blocks.clear();
    m_anchor.reset();
    m_focus.reset();
    m_drags = false;
}

bool KXGridSelection::contains(const KXGridCell& cell) const
{
    return std::ranges::any_of(m_blocks, [&](const KXGridBlock& block) { return block.contains(cell); });
}

bool KXGridSelection::hasRowIn(std::uint64_t row) const
{
    return std::ranges::any_of(m_blocks, [&](const KXGridBlock& block) { return block.rows.contains(row); });
}

bool KXGridSelection::hasColumnIn(std::uint64_t column) const
{
    return std::ranges::any_of(m_blocks,
                               [&](const KXGridBlock& block) { return block.columns.contains(column); });
}

KXGridCell KXGridSelection::_moveInside(const KXGridCell& cell) const
{
    return {std::min(cell.row, m_rowCount - 1), std::min(cell.column, m_columnCount - 1)};
}

KXGridBlock KXGridSelection::_makeBlock(const KXGridCell& from, const KXGridCell& to,
                                        KXGridSelectionUnit unit) const
{
    const auto obtainRange = [](std::uint64_t a, std::uint64_t b) {
        return KXGridRange{std::min(a, b), std::max(a, b) + 1};
    };
    KXGridBlock block{obtainRange(from.row, to.row), obtainRange(from.column, to.column)};
    if (unit == KXGridSelectionUnit::Rows || unit == KXGridSelectionUnit::All)
        block.columns = {0, m_columnCount};
    if (unit == KXGridSelectionUnit::Columns || unit == KXGridSelectionUnit::All)
        block.rows = {0, m_rowCount};
    return block;
}

void KXGridSelection::press(const KXGridCell& cell, KXGridSelectionUnit unit, bool extends, bool adds)
{
    if (m_rowCount == 0 || m_columnCount == 0)
        return;
    const KXGridCell pressed = _moveInside(cell);
    m_unit = unit;
    m_focus = pressed;
    const bool takesAway = adds && !extends && unit == KXGridSelectionUnit::Cells && contains(pressed);
    m_drags = !takesAway;
    if (!extends || !m_anchor)
        m_anchor = pressed;
    const KXGridBlock block = _makeBlock(*m_anchor, pressed, unit);
    if (takesAway) {
        _remove(block);
        return;
    }
    if (!adds)
        m_blocks.clear();
    else if (extends && !m_blocks.empty())
        m_blocks.pop_back();
    m_blocks.push_back(block);
}

void KXGridSelection::dragTo(const KXGridCell& cell)
{
    if (!m_drags || !m_anchor || m_blocks.empty())
        return;
    m_focus = _moveInside(cell);
    m_blocks.back() = _makeBlock(*m_anchor, *m_focus, m_unit);
}

/** Takes a block out of all others, of which up to four parts are left each. */
void KXGridSelection::_remove(const KXGridBlock& removed)
{
    std::vector<KXGridBlock> left;
    const auto add = [&](const KXGridRange& rows, const KXGridRange& columns) {
        if (!rows.isEmpty() && !columns.isEmpty())
            left.push_back({rows, columns});
    };
    for (const KXGridBlock& block : m_blocks) {
        const KXGridRange rows = kxIntersectRanges(block.rows, removed.rows);
        const KXGridRange columns = kxIntersectRanges(block.columns, removed.columns);
        if (rows.isEmpty() || columns.isEmpty()) {
            left.push_back(block);
            continue;
        }
        add({block.rows.first, rows.first}, block.columns);
        add({rows.end, block.rows.end}, block.columns);
        add(rows, {block.columns.first, columns.first});
        add(rows, {columns.end, block.columns.end});
    }
    m_blocks = std::move(left);
}

bool KXGridSelection::move(KXGridStep step, bool extends, std::uint64_t pageRows)
{
    if (m_rowCount == 0 || m_columnCount == 0)
        return false;
    press(m_focus ? _obtainStepped(step, std::max<std::uint64_t>(pageRows, 1)) : KXGridCell(),
          KXGridSelectionUnit::Cells, extends, false);
    return true;
}

KXGridCell KXGridSelection::_obtainStepped(KXGridStep step, std::uint64_t pageRows) const
{
    using enum KXGridStep;
    const auto [row, column] = *m_focus;
    const std::uint64_t lastRow = m_rowCount - 1, lastColumn = m_columnCount - 1;
    switch (step) {
    case Left:
        return {row, column - (column > 0 ? 1 : 0)};
    case Right:
        return {row, std::min(column + 1, lastColumn)};
    case Up:
        return {row - (row > 0 ? 1 : 0), column};
    case Down:
        return {std::min(row + 1, lastRow), column};
    case PageUp:
        return {row - std::min(row, pageRows), column};
    case PageDown:
        return {row + std::min(lastRow - row, pageRows), column};
    case RowStart:
        return {row, 0};
    case RowEnd:
        return {row, lastColumn};
    case ColumnStart:
        return {0, column};
    case ColumnEnd:
        return {lastRow, column};
    case First:
        return {0, 0};
    case Last:
        return {lastRow, lastColumn};
    }
    return *m_focus;
}

void KXGridSelection::widen(KXGridSelectionUnit unit)
{
    if (m_blocks.empty() || !m_anchor || !m_focus)
        return;
    m_unit = unit;
    m_blocks.back() = _makeBlock(*m_anchor, *m_focus, unit);
}
