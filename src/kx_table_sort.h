#pragma once

#include "kx_index_path.h"

#include <cstdint>

/** What the rows of a table are to be in the order of. */
struct KXTableSort {
    /** The measure whose values count; the dimensions of the rows follow the measures. */
    std::uint64_t measure = 0;
    KXIndexPath column; /**< whose values count; of a dimension empty */
    bool isDescending = false;

    friend bool operator==(const KXTableSort&, const KXTableSort&) = default;
};
