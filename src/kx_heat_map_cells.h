#pragma once

#include "kx_export.h"
#include "kx_gradient_scale.h"
#include "kx_grid_block.h"

#include <cstdint>
#include <optional>
#include <span>

/** The values of a heat map, or of its totals, and the colours that stand for them. */
struct KX_EXPORT KXHeatMapCells {
    std::span<const double> values; /**< row after row, NaN for a null; whose they are keeps them */
    std::uint64_t rowCount = 0, columnCount = 0; /**< as many as there are values */
    KXGradientScale scale;
    std::optional<double> middle;       /**< what values are compared with; none: the more the stronger */
    std::span<const double> parts = {}; /**< of the values what is drawn in full; empty for all of it */
    double lightOpacity = 1;            /**< of a cell beside its part */

    /** @return NaN past the counts */
    double obtainValue(const KXGridCell& cell) const;
    /** @return what of a cell is drawn in full, 0 to 1 */
    double obtainFullShare(const KXGridCell& cell) const;
    /** @return whether a value shows rather than another one where there is no room for both; a null never
     * does */
    bool isStronger(double value, double other) const;
    /** @return the first of the cells that shows rather than the others, none where all are null */
    std::optional<KXGridCell> findStrongest(const KXGridBlock& block) const;
};
