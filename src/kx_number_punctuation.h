#pragma once

#include "kx_chart_data_format_options.h"

/** The characters between the digits of a number. */
struct KXNumberPunctuation {
    char decimalPoint = '.';
    char thousandsSeparator = ','; // between groups of three digits
    bool grouped = true;           // off: no thousands separator shows
};

[[nodiscard]] constexpr KXNumberPunctuation kxObtainNumberPunctuation(
    KXChartDataFormatThousandsSeparator thousands, KXChartDataFormatDecimalSeparator decimal)
{
    using Thousands = KXChartDataFormatThousandsSeparator;
    return {decimal == KXChartDataFormatDecimalSeparator::Comma ? ',' : '.',
            thousands == Thousands::Dot     ? '.'
            : thousands == Thousands::Space ? ' '
                                            : ',',
            thousands != Thousands::None};
}
