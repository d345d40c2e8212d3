// Numbers, dates and times become text by any settings.

#include "fuzz_input.h"
#include "kx_chart_data_format.h"

#include <cmath>
#include <cstdio>

namespace {

void choose(KXChartDataFormat& format, FuzzInput& input)
{
    format.setPrefix(input.takeText());
    format.setSuffix(input.takeText());
    format.setDivider(input.takeNumber());
    format.setUseCustomUnit(input.takeBool());
    format.setDecimals(input.takeInt());
    format.setThousandsSeparator(static_cast<KXChartDataFormatThousandsSeparator>(input.takeBelow(5)));
    format.setDecimalSeparator(static_cast<KXChartDataFormatDecimalSeparator>(input.takeBelow(3)));
    format.setNegative(static_cast<KXChartDataFormatNegative>(input.takeBelow(3)));
    format.setDateTimeMode(static_cast<KXChartDataFormatDateTimeMode>(input.takeBelow(3)));
    format.setDatePresetFormat(input.takeText());
    format.setTimePresetFormat(input.takeText());
    format.setCustomDateTimeFormat(input.takeText());
}

/** The library writes its digits itself; the C library, in its own locale, has to write the same ones. */
void compareWithTheCLibrary(double value, int decimals)
{
    KXChartDataFormat format;
    format.setThousandsSeparator(KXChartDataFormatThousandsSeparator::None);
    format.setDecimals(decimals);
    char digits[512];
    std::snprintf(digits, sizeof digits, "%s%.*f", value < 0 ? "-" : "", decimals, std::fabs(value));
    const std::string text = format.formatNumber(value);
    require(!std::isfinite(value) || text == digits, "a number has the digits of its exact value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    FuzzInput input(bytes, size);
    const double value = input.takeNumber();
    compareWithTheCLibrary(value, input.takeBelow(24));
    const auto type = static_cast<KXChartDataType>(input.takeBelow(8) - 1);
    const KXChartAggregateType level{input.takeBelow(16) == 15 ? input.takeInt() : input.takeBelow(16)};
    const std::string moment = input.takeText();
    KXChartDataFormat format;
    require(format.formatDateTime(moment, type, level).size() <= 16u << 20, "a text has an end");
    choose(format, input);
    require(KXChartDataFormat(format).formatNumber(value) == format.formatNumber(value),
            "a copy writes alike");
    require(format.formatDateTime(moment, type, level).size() <= 16u << 20, "a text has an end");
    return 0;
}
