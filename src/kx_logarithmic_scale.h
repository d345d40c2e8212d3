#pragma once

#include "kx_export.h"

#include <vector>

/** The ends of an axis that counts exponents to base ten. */
struct KXLogarithmicRange {
    double low = 0, high = 1;
};

/** @param low, high the data's least and greatest value; what is not above zero makes it the range from 1 to
 * 10
 *  @param isRounded out to 1, 2 or 5 times a power of ten, and to powers where there are some between them
 *  @return their exponents, the low one below the high one */
[[nodiscard]] KX_EXPORT KXLogarithmicRange kxObtainLogarithmicRange(double low, double high, bool isRounded);

/** @param low, high exponents
 *  @param wanted as many ticks are enough
 *  @return the exponents of powers of ten, of every n-th one where these are many; where these are few, those
 * of 2 and 5 times a power too; where even these are, those of values in even steps */
[[nodiscard]] KX_EXPORT std::vector<double> kxObtainLogarithmicTicks(double low, double high, int wanted);
