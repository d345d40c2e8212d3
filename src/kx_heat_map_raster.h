#pragma once

#include "kx_export.h"
#include "kx_grid_lines.h"
#include "kx_heat_map_cells.h"
#include "kx_heat_map_colors.h"
#include "ux/ux_image.h"

#include <cstdint>
#include <vector>

/** What the pixels of a device show along one direction. */
struct KXPixelLine {
    KXGridRange lines;  /**< of the grid: one, or all that begin in the pixel, or none */
    bool isGap = false; /**< between a line and the next one */

    friend bool operator==(const KXPixelLine&, const KXPixelLine&) = default;
};

/**
 * @param start of the first pixel, from the first line's start on
 * @param pixel its extent, above 0
 * @param count how many pixels
 * @param gap at the end of each line
 * @return one entry a pixel: the line at its middle; where lines are shorter than pixels, each line is in one
 */
[[nodiscard]] KX_EXPORT std::vector<KXPixelLine> kxObtainPixelLines(const KXGridLines& lines, double start,
                                                                    double pixel, int count, double gap);

/** How nulls look in an image of cells: clear, or with slanted lines. */
struct KXHeatMapHatch {
    std::uint32_t pixel = 0; /**< of the lines; 0 for none */
    int period = 1;          /**< from one line to the next, in pixels */
};

/** @return an image of as many pixels as there are lines, each in the colour of the strongest of its cells. A
 * cell that is drawn in part is the more opaque the larger its part is. */
[[nodiscard]] KX_EXPORT UXImage kxDrawHeatMapRaster(const KXHeatMapCells& cells,
                                                    const KXHeatMapColors& colors,
                                                    const std::vector<KXPixelLine>& rows,
                                                    const std::vector<KXPixelLine>& columns,
                                                    const KXHeatMapHatch& hatch);
