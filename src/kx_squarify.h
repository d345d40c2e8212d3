#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"

#include <span>
#include <vector>

/** The edges of a part of a divided area. Two neighbours have the same number where they meet. */
struct KXTileEdges {
    double left = 0, top = 0, right = 0, bottom = 0;

    friend bool operator==(const KXTileEdges&, const KXTileEdges&) = default;
};

/**
 * Divides an area among values, without gaps: rows along the shorter side of what is left, each of as many
 * values as make its longest tile the squarest (Bruls, Huizing and van Wijk, "Squarified Treemaps", 2000).
 * @param values above zero and finite; in falling order the tiles are the squarest
 * @return one part each, of its value's share of the area
 */
[[nodiscard]] KX_EXPORT std::vector<KXTileEdges> kxSquarify(std::span<const double> values,
                                                            const UXDoubleRect& area);
