#pragma once

#include "kx_export.h"

/** What is known of the values of a measure in a table. */
struct KXTableExtent {
    double least = 0, greatest = 0; /**< of the values that are no totals */
    bool hasValues = false;         /**< off: these are not known */
    bool hasFractions = false;      /**< some value, a total perhaps, is no whole number */

    friend bool operator==(const KXTableExtent&, const KXTableExtent&) = default;
};

/** Takes a value into an extent; what is not finite says nothing. @param isTotal it says nothing of the ends
 */
KX_EXPORT void kxExtendTableExtent(KXTableExtent& extent, double value, bool isTotal);
