#include "kx_accessible_cell.h"

#include "kx_cell_list.h"
#include "kx_cell_list_delegate.h"

KXAccessibleCell::KXAccessibleCell(KXCellList& cells, std::uint64_t place)
    : m_owner(&cells.getOwner()), m_cells(cells), m_place(place)
{
}

KXAccessibleCell::~KXAccessibleCell() = default;

UXObject* KXAccessibleCell::getObject() const { return m_owner.getObject(); }

/** @return whether the list is, and is as long as it was */
bool KXAccessibleCell::_isThere() const { return m_owner.isAlive() && m_place < m_cells.obtainCount(); }

UXAccessibleInfo KXAccessibleCell::obtainInfo()
{
    if (!_isThere())
        return {};
    const std::uint64_t index = m_cells.obtainIndex(m_place);
    UXAccessibleInfo info = m_cells.getDelegate().obtainCellInfo(index);
    if (!_isThere())
        return {};
    info.rect = m_cells.obtainSeenRect(m_place);
    info.isFocusable = true;
    info.isFocused = m_cells.isWalkedTo(index);
    info.actions = {UXAccessibleAction::Focus, UXAccessibleAction::Press};
    return info;
}

bool KXAccessibleCell::perform(UXAccessibleAction action)
{
    const bool presses = action == UXAccessibleAction::Press;
    if (!_isThere() || (!presses && action != UXAccessibleAction::Focus))
        return false;
    m_cells.goTo(m_place, presses);
    return true;
}
