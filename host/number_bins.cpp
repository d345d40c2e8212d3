#include "number_bins.h"

#include <cmath>

double obtainRoundBinWidth(double least, double greatest, std::uint64_t count)
{
    const double exact = (greatest - least) / static_cast<double>(count);
    if (!std::isfinite(exact) || !(exact > 0))
        return 1;
    // The nearest of 1, 2, 5 and 10 times a power of ten, by ratio
    const double exponent = std::floor(std::log10(exact)), power = std::pow(10, std::abs(exponent));
    const double share = exponent < 0 ? exact * power : exact / power;
    const double factor = share < std::sqrt(2.0)    ? 1
                          : share < std::sqrt(10.0) ? 2
                          : share < std::sqrt(50.0) ? 5
                                                    : 10;
    return exponent < 0 ? factor / power : factor * power;
}
