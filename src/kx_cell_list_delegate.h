#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_info.h"

#include <cstdint>
#include <memory>
#include <span>

class KXListCell;
class UXEvent;

/** What the owner of a list of cells tells it. Answers that are not const may ask a host, which may destroy
 * the owner. */
class KX_EXPORT KXCellListDelegate {
public:
    /** @return the indexes of the cells that are shown, by place, ascending */
    virtual std::span<const int> obtainListedCells() const = 0;
    /** @return the width of the cell at a place, in logical units */
    virtual double obtainCellWidth(std::size_t place) const = 0;
    /** @return a new object for a cell, null where the owner has gone meanwhile */
    virtual std::unique_ptr<KXListCell> makeCell() = 0;
    /** Has cell, which may stand for another one, stand for that index. */
    virtual void fillCell(KXListCell& cell, std::uint64_t index) = 0;
    /** @return what a cell is to those who do not see it, its role, texts and states; by default an item that
     * says nothing */
    virtual UXAccessibleInfo obtainCellInfo(std::uint64_t index);
    /** Enter was pressed on the cell, which is in sight: by default nothing happens, as below. */
    virtual void clickCell(KXListCell& cell, const UXEvent& event);
    /** Space was pressed on the cell. */
    virtual void switchCell(std::uint64_t index, const UXEvent& event);

protected:
    ~KXCellListDelegate() = default;
};
