#pragma once

#include "kx_export.h"

#include <span>
#include <string>
#include <vector>

/**
 * Rounds the parts of a whole so that they add up to 100 as they are shown: those that lose the most by being
 * cut get the rest, of equal ones the earlier.
 * @param values the parts; what is not finite or not above zero has none of the whole
 * @param decimals 0 to 9
 * @return the percentages in their order; all 0 where there is no whole
 */
[[nodiscard]] KX_EXPORT std::vector<double> kxObtainPercentages(std::span<const double> values, int decimals);

/** @param percentage one of those
 *  @param value what it stands for
 *  @return "12.5 %"; "< 0.1 %" for a value above zero that is rounded to it */
[[nodiscard]] KX_EXPORT std::string kxFormatPartOfWhole(double percentage, double value, int decimals);
