#include "kx_accessible_cells.h"

#include "kx_accessible_cell.h"
#include "kx_cell_list.h"

#include <utility>

KXAccessibleCells::KXAccessibleCells(KXCellList& cells, UXAccessibleRole role, std::string name)
    : UXAccessibleObject(cells.getOwner(), role, std::move(name)), m_cells(cells)
{
}

KXAccessibleCells::~KXAccessibleCells() = default;

std::uint64_t KXAccessibleCells::obtainChildCount()
{
    return getObject() ? UXAccessibleObject::obtainChildCount() + m_cells.obtainCount() : 0;
}

std::unique_ptr<UXAccessibleNode> KXAccessibleCells::createChild(std::uint64_t index)
{
    if (index >= obtainChildCount())
        return nullptr;
    const std::uint64_t parts = UXAccessibleObject::obtainChildCount();
    return index < parts ? UXAccessibleObject::createChild(index)
                         : std::make_unique<KXAccessibleCell>(m_cells, index - parts);
}
