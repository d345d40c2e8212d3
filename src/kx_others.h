#pragma once

#include "kx_export.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/** Which members of a dimension are gathered in one that is named "Others". */
struct KXOthersRule {
    std::optional<std::uint64_t> greatestCount; /**< only so many keep a place of their own: the largest */
    double leastShare = 0; /**< those with a smaller part of the whole are gathered, 0 to 1 */
    std::optional<std::uint64_t> hostOthers; /**< a member that the host has gathered already: it joins */
};

/** The members of a dimension, each in one of two lists, in their order. */
struct KXOthers {
    std::vector<std::uint64_t> kept;
    std::vector<std::uint64_t> gathered; /**< none, or several */
    double sum = 0;                      /**< of those that are gathered, saturated */
};

/**
 * Gathers the small members of a dimension, by their values without signs. A single one is never gathered:
 * its own name says more.
 * @param values one a member, of a measure that adds up; NaN for a null, which is kept and counts nowhere
 */
[[nodiscard]] KX_EXPORT KXOthers kxGatherOthers(std::span<const double> values, const KXOthersRule& rule);
