#include "kx_value_change.h"

#include "kx_chart_data_format.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int greatestDecimals = 9;
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

double keepFinite(double value) { return std::isfinite(value) ? value : noNumber; }

bool hasDigitAboveZero(const std::string& text)
{
    return std::ranges::any_of(text, [](char c) { return c >= '1' && c <= '9'; });
}

} // namespace

KXValueChange kxObtainValueChange(double value, double base)
{
    KXValueChange change;
    change.difference = keepFinite(value - base);
    if (base != 0)
        change.percentage = keepFinite(change.difference / std::abs(base) * 100);
    return change;
}

std::string kxFormatSignedNumber(double value, const KXChartDataFormat& format)
{
    if (!std::isfinite(value))
        return kxNoNumberText;
    return value > 0 ? "+" + format.formatNumber(value) : format.formatNumber(value);
}

std::string kxFormatFigurePercentage(double percentage, int decimals, const KXChartDataFormat& format)
{
    if (!std::isfinite(percentage))
        return kxNoNumberText;
    KXChartDataFormat own;
    own.setThousandsSeparator(format.getThousandsSeparator());
    own.setDecimalSeparator(format.getDecimalSeparator());
    own.setNegative(format.getNegative());
    own.setDecimals(std::clamp(decimals, 0, greatestDecimals));
    const std::string text = own.formatNumber(percentage);
    return (hasDigitAboveZero(text) ? text : own.formatNumber(0)) + " %";
}

std::string kxFormatSignedPercentage(double percentage, int decimals, const KXChartDataFormat& format)
{
    const std::string text = kxFormatFigurePercentage(percentage, decimals, format);
    return percentage > 0 && hasDigitAboveZero(text) ? "+" + text : text;
}
