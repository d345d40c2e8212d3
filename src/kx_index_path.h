#pragma once

#include <cstdint>
#include <vector>

/** Names one cell of the host's data. For values: the measure, then one position per dimension. For dimension
 *  members: the dimension, then the member. */
using KXIndexPath = std::vector<std::uint64_t>;
