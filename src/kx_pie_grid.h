#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"

#include <cstddef>

/** Equal places for pies, row by row. */
struct KX_EXPORT KXPieGrid {
    UXDoubleRect area;
    std::size_t columnCount = 1, rowCount = 1;
    double gap = 0; /**< between two places */

    /** Divides area so that the pies are as large as they can be.
     *  @param count of pies, above 0
     *  @param shape the extent of a pie of radius 1
     *  @param captionHeight what each place loses above its pie */
    static KXPieGrid divide(const UXDoubleRect& area, std::size_t count, const UXDoubleSize& shape,
                            double captionHeight);

    UXDoubleRect obtainPlace(std::size_t index) const;
};
