#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"

#include <array>
#include <vector>

/** The least contrast that lets a shape be seen on its ground, as WCAG 2.1 has it for graphics, and the least
 * difference (CIEDE2000) at which two of them are taken for two. */
constexpr double uxVisibleContrast = 3, uxDistinctDifference = 10;

/** How well the colours of a palette are seen and told apart. */
struct UX_EXPORT UXPaletteNumbers {
    double leastContrast = 0;                 /**< of a colour with the ground */
    std::array<double, 4> leastDifferences{}; /**< of two colours, as each UXColorVision has it */

    /** @return whether every colour can be seen, and any two told apart by all eyes */
    bool areEnough() const;
};

/** @param ground opaque; clear colours count as they look on it
 *  @return infinite numbers where there is nothing to compare */
[[nodiscard]] UX_EXPORT UXPaletteNumbers uxMeasurePalette(const std::vector<UXColor>& colors,
                                                          const UXColor& ground);

/** @return as many opaque colours that can be seen on an opaque ground and told apart by all eyes, each one
 * where it was or near it: the first stays if it can be seen. Where no colour is left that would do, it stays
 * as it was. */
[[nodiscard]] UX_EXPORT std::vector<UXColor> uxMakeDistinctPalette(const std::vector<UXColor>& colors,
                                                                   const UXColor& ground);
