#include "kx_chart_data_format.h"
#include "kx_custom_facets.h"
#include "ux_odd_locale.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <tuple>

namespace {

using Thousands = KXChartDataFormatThousandsSeparator;
using Decimal = KXChartDataFormatDecimalSeparator;
using Negative = KXChartDataFormatNegative;

const double infinity = std::numeric_limits<double>::infinity();

/** What a stream with the format's separators prints. */
std::string printWithStream(const KXChartDataFormat& format, double magnitude, int decimals)
{
    std::ostringstream stream;
    stream.imbue(std::locale(std::locale::classic(),
                             new CustomFacets(format.getThousandsSeparator(), format.getDecimalSeparator())));
    stream << std::fixed << std::setprecision(decimals) << magnitude;
    return stream.str();
}

/** Every kind of double: any bit pattern, everyday amounts, halves that are exact ties. */
double makeRandomNumber(std::mt19937_64& random)
{
    switch (random() % 3) {
    case 0:
        return std::bit_cast<double>(random());
    case 1:
        return std::uniform_real_distribution<>(-1e7, 1e7)(random);
    default:
        return static_cast<double>(static_cast<std::int64_t>(random() % 200001) - 100000) / 8;
    }
}

} // namespace

TEST(KXNumberText, ValuesBecomeText)
{
    using F = KXChartDataFormat;
    const auto defaults = [](F&) {};
    const auto unit = [](F& f) {
        f.setPrefix("$");
        f.setSuffix("K");
        f.setDivider(1000);
    };
    const auto blanks = [](F& f) { f.setThousandsSeparator(Thousands::Space), f.setDecimals(1); };
    const auto decimalComma = [](F& f) {
        f.setThousandsSeparator(Thousands::None), f.setDecimalSeparator(Decimal::Comma);
    };
    const auto bracketedUnit = [&](F& f) { unit(f), f.setNegative(Negative::RoundBrackets); };
    const std::tuple<const char*, std::function<void(KXChartDataFormat&)>, double, const char*> cases[] = {
        {"whole", defaults, 1234567, "1,234,567"},
        {"automatic decimals", defaults, 1234.5, "1,234.50"},
        {"zero", defaults, 0, "0"},
        {"minus zero has no mark", defaults, -0.0, "0"},
        {"never an exponent", defaults, 1e21, "1,000,000,000,000,000,000,000"},
        {"smallest number", defaults, 5e-324, "0.00"},
        {"rounds into a new group", defaults, 999.999, "1,000.00"},
        {"not a number has no mark", defaults, -std::nan(""), "nan"},
        {"minus infinity", defaults, -infinity, "-inf"},
        {"points as grouping", [](F& f) { f.setThousandsSeparator(Thousands::Dot); }, 1234.5, "1.234,50"},
        {"blanks as grouping", blanks, 9876543.21, "9 876 543.2"},
        {"no grouping, decimal comma", decimalComma, 1234.5, "1234,50"},
        {"unit in brackets", bracketedUnit, -15300, "($15.30K)"},
        {"dash before the prefix", unit, -1234000, "-$1,234K"},
        {"decimals after the division", unit, 1500, "$1.50K"},
        {"divider not a number", [](F& f) { f.setDivider(NAN); }, 10, "10"},
        {"infinite over infinite", [](F& f) { f.setDivider(infinity); }, infinity, "nan"},
        {"a negative value has its mark in any case", [](F& f) { f.setDivider(infinity); }, -infinity,
         "-nan"},
        {"custom unit changes nothing", [](F& f) { f.setUseCustomUnit(true); }, 10, "10"},
        {"exact value decides", [](F& f) { f.setDecimals(2); }, 2.675, "2.67"},
        {"tie to even, down", [](F& f) { f.setDecimals(0); }, 0.5, "0"},
        {"below automatic", [](F& f) { f.setDecimals(-2); }, 1.5, "1.500000"},
        {"two yen signs", [](F& f) { f.setPrefix("¥¥"); }, -5, "-¥5"},
        {"three yen signs", [](F& f) { f.setPrefix("¥¥¥"); }, 5, "¥¥¥5"},
    };
    for (const auto& [name, set, value, expected] : cases) {
        SCOPED_TRACE(name);
        KXChartDataFormat format;
        set(format);
        EXPECT_EQ(format.formatNumber(value), expected);
    }
}

TEST(KXNumberText, EqualsAStreamWithTheFacet)
{
    std::mt19937_64 random(20240305);
    KXChartDataFormat format;
    for (int i = 0; i < 40000; ++i) {
        format.setThousandsSeparator(static_cast<Thousands>(random() % 4));
        format.setDecimalSeparator(static_cast<Decimal>(random() % 2));
        const int decimals = static_cast<int>(random() % 50 == 0 ? random() % 1200 : random() % 20);
        format.setDecimals(decimals);
        format.setDivider(random() % 2 ? 1000 : 0);
        const double value = makeRandomNumber(random);
        const double magnitude = std::fabs(value) / (format.getDivider() > 0 ? 1000 : 1);
        ASSERT_EQ(format.formatNumber(value),
                  (value < 0 ? "-" : "") + printWithStream(format, magnitude, decimals))
            << std::hexfloat << value;
    }
}

TEST(KXNumberText, IsBoundedForAnyNumberOfDecimals)
{
    KXChartDataFormat format;
    format.setThousandsSeparator(Thousands::None);
    for (const int decimals : {1074, 1075, 5000, 10000}) {
        format.setDecimals(decimals);
        for (const double value : {DBL_MAX, 5e-324, 0.1})
            EXPECT_EQ(format.formatNumber(value), printWithStream(format, value, decimals)) << decimals;
    }
    format.setDecimals((std::numeric_limits<int>::max)());
    EXPECT_EQ(format.formatNumber(0.5).size(), 10002u);
    format.setDecimals((std::numeric_limits<int>::min)());
    EXPECT_EQ(format.formatNumber(0.5), "0.500000");

    const std::string megabyte(1 << 20, '\0');
    format.setDecimals(0);
    format.setPrefix(megabyte);
    format.setSuffix(megabyte);
    EXPECT_EQ(format.formatNumber(-7), "-" + megabyte + "7" + megabyte);
}

TEST(KXNumberText, NoLocaleChangesIt)
{
    const UXOddLocale odd;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"})
        if (std::setlocale(LC_ALL, name))
            break;
    KXChartDataFormat format;
    EXPECT_EQ(format.formatNumber(-1234567.5), "-1,234,567.50");
    EXPECT_EQ(printWithStream(format, 1234567.5, 2), "1,234,567.50");
    EXPECT_EQ(format.formatDateTime("12345-1-1", KXChartDataType::Date, {}), "YYYY-MM-DD");
    format.setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
    format.setCustomDateTimeFormat("WD, MMMM D YYYY, HHHH p");
    EXPECT_EQ(format.formatDateTime("2024-03-05 14:07:09", KXChartDataType::DateTime, {}),
              "Tuesday, March 5 2024, 1414 PM");
    format.setCustomDateTimeFormat("H m");
    EXPECT_EQ(format.formatDateTime("1234567:08:09", KXChartDataType::Time, {}), "1234567 8");
    std::setlocale(LC_ALL, "C");
}
