#pragma once

#include "ux/ux_export.h"

#include <cstdint>
#include <source_location>
#include <string>

/** Reports a failed check of our own as uxAssert does. @return condition */
UX_EXPORT bool utAssert(bool condition, std::source_location location = std::source_location::current());

/** @return -1, 0 or 1: the order of a and b, equal when they are no more than 1e-8 apart; NaN equals NaN and
 * comes before every number */
[[nodiscard]] UX_EXPORT int utCompareDoubles(double a, double b);

[[nodiscard]] UX_EXPORT std::string utToString(std::uint64_t value);
