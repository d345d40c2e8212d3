#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"

#include <vector>

/** Which colours stand for the values of a range: one runs into the next, or each class of values has its
 * own. */
struct KX_EXPORT KXGradientScale {
    double least = 0, greatest = 1; /**< the range: finite, the second not below the first */
    double middleValue = 0; /**< has the middle colour, where it lies inside the range; else halfway */
    UXColor minColor, middleColor, maxColor;
    int classCount = 0; /**< above 0: the range has as many classes of the same width */

    /** @param value one beyond the range has the colour of its end
     *  @return the colour; for NaN a clear one */
    UXColor obtainColor(double value) const;
    /** @return where the classes begin, and where the last one ends; empty without classes */
    std::vector<double> obtainClassBounds() const;

    friend bool operator==(const KXGradientScale&, const KXGradientScale&) = default;

private:
    UXColor _obtainColorAt(double value) const;
    /** @param share of the range, 0 to 1 */
    double _obtainValueAt(double share) const;
};
