#pragma once

#include "kx_index_path.h"

#include <cstdint>

/** What a row or a column of a table stands for. */
struct KXTableLine {
    enum class Kind : std::uint8_t {
        Member, /**< has no members below it that could show */
        Group,  /**< has members below it; closed, it stands for their total */
        Total   /**< of the members below the path */
    };

    KXIndexPath path; /**< of the member or group; of a total that of its parent */
    Kind kind = Kind::Member;
    bool isExpanded = false;

    friend bool operator==(const KXTableLine&, const KXTableLine&) = default;
};
