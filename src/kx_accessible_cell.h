#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_object_watcher.h"

class KXCellList;

/** A cell of a list for those who do not see it, whether it is in sight or not. */
class KX_EXPORT KXAccessibleCell : public UXAccessibleNode {
public:
    /** @param cells its owner's, with which it goes
     *  @param place of the cell, counted from 0 */
    KXAccessibleCell(KXCellList& cells, std::uint64_t place);
    ~KXAccessibleCell() override;

    // From UXAccessibleNode
    UXObject* getObject() const override;
    UXAccessibleInfo obtainInfo() override;
    bool perform(UXAccessibleAction action) override;

private:
    bool _isThere() const;

    UXObjectWatcher m_owner;
    KXCellList& m_cells;
    std::uint64_t m_place;
};
