#pragma once

#include "kx_export.h"

#include <cmath>
#include <limits>
#include <string>

class KXChartDataFormat;

/** How far a value is from what it is compared with; NaN where that cannot be told. */
struct KX_EXPORT KXValueChange {
    double difference = std::numeric_limits<double>::quiet_NaN(); /**< the value less its base */
    double percentage = std::numeric_limits<double>::quiet_NaN(); /**< of the magnitude of the base */

    /** @return whether the change has a direction and a size, so that an arrow and a colour tell it */
    bool isTold() const { return !std::isnan(percentage); }
};

/** @param value, base NaN for none; a base of zero has no percentage */
[[nodiscard]] KX_EXPORT KXValueChange kxObtainValueChange(double value, double base);

/** What is written where a number cannot be told. */
inline constexpr const char* kxNoNumberText = "--";

/** @return 1 or -1 for the sign of a number as format writes it, 0 where all digits are zero and for NaN */
[[nodiscard]] KX_EXPORT int kxObtainShownSign(double value, const KXChartDataFormat& format);
/** @param decimals of the percentage, 0 to 9
 *  @return the same of a percentage */
[[nodiscard]] KX_EXPORT int kxObtainShownPercentageSign(double percentage, int decimals);

/** @return the number as format writes it, with its sign above zero too, and without one where all digits are
 * zero; kxNoNumberText for NaN */
[[nodiscard]] KX_EXPORT std::string kxFormatSignedNumber(double value, const KXChartDataFormat& format);

/** @param decimals 0 to 9
 *  @param format whose separators the percentage has
 *  @return "12.5 %", kxNoNumberText for NaN */
[[nodiscard]] KX_EXPORT std::string kxFormatFigurePercentage(double percentage, int decimals,
                                                             const KXChartDataFormat& format);
/** @return the same with its sign, unless all digits are zero */
[[nodiscard]] KX_EXPORT std::string kxFormatSignedPercentage(double percentage, int decimals,
                                                             const KXChartDataFormat& format);
