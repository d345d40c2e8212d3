#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_object.h"

class KXCellList;

/** A list of cells for those who do not see it: what else its owner holds, then all cells, in sight or not,
 * each of which is made when someone asks for it. */
class KX_EXPORT KXAccessibleCells : public UXAccessibleObject {
public:
    /** @param cells its owner's, with which it goes */
    KXAccessibleCells(KXCellList& cells, UXAccessibleRole role, std::string name);
    ~KXAccessibleCells() override;

    // From UXAccessibleNode
    std::uint64_t obtainChildCount() override;
    std::unique_ptr<UXAccessibleNode> createChild(std::uint64_t index) override;

private:
    KXCellList& m_cells;
};
