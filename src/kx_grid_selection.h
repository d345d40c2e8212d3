#pragma once

#include "kx_export.h"
#include "kx_grid_block.h"
#include "kx_grid_selection_unit.h"
#include "kx_grid_step.h"

#include <cstdint>
#include <optional>
#include <vector>

/**
 * Which cells of a grid are chosen and where its keyboard is. A choice is a list of blocks, whatever number
 * of cells is in them; a whole row is a block over all columns.
 *
 * A press chooses a cell, a row, a column or all. With extends (Shift) the choice reaches from where it began
 * to there; with adds (Ctrl) what was chosen stays, and a cell that is chosen is taken away. A drag goes on
 * with what the press has begun.
 */
class KX_EXPORT KXGridSelection {
public:
    /** Other rows and columns: nothing is chosen then, unless they are as many as before. */
    void setExtent(std::uint64_t rowCount, std::uint64_t columnCount);

    const std::optional<KXGridCell>& getFocus() const { return m_focus; }
    const std::vector<KXGridBlock>& getBlocks() const { return m_blocks; }
    bool isEmpty() const { return m_blocks.empty(); }
    bool contains(const KXGridCell& cell) const;
    bool hasRowIn(std::uint64_t row) const;
    bool hasColumnIn(std::uint64_t column) const;

    // What is beyond the extent is moved to the last cell
    void press(const KXGridCell& cell, KXGridSelectionUnit unit, bool extends, bool adds);
    void dragTo(const KXGridCell& cell);
    /** @param pageRows how many rows a page is
     *  @return whether there is a cell to go to */
    bool move(KXGridStep step, bool extends, std::uint64_t pageRows);
    /** Chooses the whole rows, columns, or all, of what is chosen last. */
    void widen(KXGridSelectionUnit unit);
    void clear();

private:
    KXGridCell _moveInside(const KXGridCell& cell) const;
    KXGridCell _obtainStepped(KXGridStep step, std::uint64_t pageRows) const;
    KXGridBlock _makeBlock(const KXGridCell& from, const KXGridCell& to, KXGridSelectionUnit unit) const;
    void _remove(const KXGridBlock& removed);

    std::uint64_t m_rowCount = 0, m_columnCount = 0;
    std::vector<KXGridBlock> m_blocks; // the last one is from the anchor to the focus
    std::optional<KXGridCell> m_anchor, m_focus;
    KXGridSelectionUnit m_unit = KXGridSelectionUnit::Cells;
    bool m_drags = false; // what was pressed last is chosen, so that a drag goes on with it
};
