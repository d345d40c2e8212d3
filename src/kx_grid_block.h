#pragma once

#include "kx_grid_cell.h"
#include "kx_grid_range.h"

#include <compare>

/** The cells where some rows cross some columns. */
struct KXGridBlock {
    KXGridRange rows;
    KXGridRange columns;

    bool contains(const KXGridCell& cell) const
    {
        return rows.contains(cell.row) && columns.contains(cell.column);
    }

    friend auto operator<=>(const KXGridBlock&, const KXGridBlock&) = default;
};
