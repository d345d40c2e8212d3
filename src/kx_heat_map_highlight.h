#pragma once

#include "kx_chart_item_look.h"
#include "kx_grid_block.h"

#include <utility>
#include <vector>

/** Which cells of a panel stand out just now, and how. */
struct KXHeatMapHighlight {
    double restOpacity = 1;                                    /**< of all other cells */
    std::vector<KXGridBlock> blocks;                           /**< what keeps its opacity */
    std::vector<std::pair<KXGridCell, KXChartItemLook>> looks; /**< cells that the host gives another one */
    std::vector<KXGridCell> rings;                             /**< cells with a ring around them */
};
