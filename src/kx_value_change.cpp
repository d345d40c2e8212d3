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

int obtainSign(double value) { return (value > 0) - (value < 0); }

} // namespace

KXValueChange kxObtainValueChange(double value, double base)
{
    KXValueChange change;
    change.difference = keepFinite(value - base);
    if (base != 0)
        change.percentage = keepFinite(change.difference / std::abs(base) * 100);
    return change;
}

int kxObtainShownSign(double value, const KXChartDataFormat& format)
{
    const double divider = format.getDivider() > 0 ? format.getDivider() : 1;
    if (std::isnan(value) || std::abs(value) >= divider)
        return obtainSign(value);
    // Prefix and suffix may hold digits too.
    KXChartDataFormat bare;
    bare.copyFrom(&format);
    bare.setPrefix({});
    bare.setSuffix({});
    return hasDigitAboveZero(bare.formatNumber(value)) ? obtainSign(value) : 0;
}

int kxObtainShownPercentageSign(double percentage, int decimals)
{
    return hasDigitAboveZero(kxFormatFigurePercentage(percentage, decimals, {})) ? obtainSign(percentage) : 0;
}

std::string kxFormatSignedNumber(double value, const KXChartDataFormat& format)
{
    if (!std::isfinite(value))
        return kxNoNumberText;
    const int sign = kxObtainShownSign(value, format);
    const std::string text = format.formatNumber(sign < 0 ? value : std::abs(value));
    return sign > 0 ? "+" + text : text;
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
    return kxObtainShownPercentageSign(percentage, decimals) > 0 ? "+" + text : text;
}
