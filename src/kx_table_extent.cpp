#include "kx_table_extent.h"

#include <algorithm>
#include <cmath>

void kxExtendTableExtent(KXTableExtent& extent, double value, bool isTotal)
{
    if (!std::isfinite(value))
        return;
    extent.hasFractions = extent.hasFractions || value != std::floor(value);
    if (isTotal)
        return;
    extent.least = extent.hasValues ? std::min(extent.least, value) : value;
    extent.greatest = extent.hasValues ? std::max(extent.greatest, value) : value;
    extent.hasValues = true;
}
