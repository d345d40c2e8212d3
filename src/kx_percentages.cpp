#include "kx_percentages.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numeric>

namespace {

constexpr int greatestDecimals = 9;
/** Losses that differ by less are equal. */
constexpr double noise = 1e-6;

/** @return how many of the last shown digit's units are one percent */
double obtainUnits(int decimals) { return std::pow(10.0, std::clamp(decimals, 0, greatestDecimals)); }

double obtainPart(double value) { return std::isfinite(value) && value > 0 ? value : 0; }

std::string formatFixed(double value, int decimals)
{
    char text[64];
    const std::to_chars_result written = std::to_chars(
        text, text + sizeof text, value, std::chars_format::fixed, std::clamp(decimals, 0, greatestDecimals));
    return {text, written.ptr};
}

} // namespace

std::vector<double> kxObtainPercentages(std::span<const double> values, int decimals)
{
    // 1. Divided by the largest first, no sum is beyond a double.
    std::vector<double> percentages(values.size());
    double largest = 0, whole = 0;
    for (const double value : values)
        largest = std::max(largest, obtainPart(value));
    if (largest == 0)
        return percentages;
    for (const double value : values)
        whole += obtainPart(value) / largest;

    // 2. Each part is cut to whole units; what it loses decides who gets the units that are left.
    const double units = obtainUnits(decimals), all = std::round(100 * units);
    std::vector<double> losses(values.size());
    double left = all;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double exact = obtainPart(values[i]) / largest / whole * all;
        percentages[i] = std::floor(exact);
        losses[i] = std::round((exact - percentages[i]) / noise);
        left -= percentages[i];
    }
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto missing = std::min(static_cast<std::size_t>(std::max(left, 0.0)), order.size());
    const auto first = order.begin(), last = first + static_cast<std::ptrdiff_t>(missing);
    const auto losesMore = [&](std::size_t a, std::size_t b) {
        return losses[a] != losses[b] ? losses[a] > losses[b] : a < b;
    };
    if (last != order.end())
        std::nth_element(first, last, order.end(), losesMore);
    std::for_each(first, last, [&](std::size_t i) { ++percentages[i]; });
    for (double& percentage : percentages)
        percentage /= units;
    return percentages;
}

std::string kxFormatPartOfWhole(double percentage, double value, int decimals)
{
    const bool isBelow = percentage == 0 && obtainPart(value) > 0;
    return isBelow ? "< " + formatFixed(1 / obtainUnits(decimals), decimals) + " %"
                   : formatFixed(percentage, decimals) + " %";
}
