#pragma once

#include <compare>
#include <cstdint>

/** A place in a grid. */
struct KXGridCell {
    std::uint64_t row = 0;
    std::uint64_t column = 0;

    friend auto operator<=>(const KXGridCell&, const KXGridCell&) = default;
};
