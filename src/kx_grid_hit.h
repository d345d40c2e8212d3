#pragma once

#include "kx_grid_band.h"
#include "kx_grid_cell.h"

/** What lies at a point of a grid: a cell, counted in its bands. */
struct KXGridHit {
    KXGridBand rowBand = KXGridBand::Content;
    KXGridBand columnBand = KXGridBand::Content;
    KXGridCell cell;

    /** @return whether it is one of the cells that the headers stand beside */
    bool isContent() const { return rowBand == KXGridBand::Content && columnBand == KXGridBand::Content; }

    friend bool operator==(const KXGridHit&, const KXGridHit&) = default;
};
