#pragma once

#include "kx_index_path.h"

#include <cstdint>

/** A cell of a table: positions below each parent along the rows and along the columns, and a measure. */
struct KXTablePlace {
    KXIndexPath row;    /**< shorter than there are dimensions, or with allMembers: a total */
    KXIndexPath column; /**< the same */
    std::uint64_t measure = 0;

    friend bool operator==(const KXTablePlace&, const KXTablePlace&) = default;
    friend auto operator<=>(const KXTablePlace&, const KXTablePlace&) = default;
};
