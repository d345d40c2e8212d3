#pragma once

#include "ux/ux_rect.h"
#include "ux/ux_size.h"

#include <cstddef>
#include <vector>

/** Where charts stand on a board: full rows, with a gap between all cells and around them. */
struct ViewGrid {
    UXSize size;               // logical units; the room, or what the least cells need where that is more
    std::vector<UXRect> cells; // row by row

    static constexpr int gap = 12;
    static constexpr UXSize leastCell{240, 160};
};

/** @return the grid that gives count charts the best shape in the room */
ViewGrid arrangeViewGrid(std::size_t count, const UXSize& room);
