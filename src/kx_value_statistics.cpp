#include "kx_value_statistics.h"

#include "kx_running_sum.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();
constexpr double largest = (std::numeric_limits<double>::max)();

double saturate(double value) { return std::clamp(value, -largest, largest); }

/** @return the values that count */
std::vector<double> takeNumbers(std::span<const double> values)
{
    std::vector<double> numbers;
    numbers.reserve(values.size());
    std::ranges::copy_if(values, std::back_inserter(numbers),
                         [](double value) { return !std::isnan(value); });
    return numbers;
}

/** A power of two by which values are divided so that sums of them and of their squares stay finite. */
double obtainScale(std::span<const double> numbers)
{
    double greatest = 0;
    for (const double number : numbers)
        greatest = (std::max)(greatest, std::abs(number));
    return greatest > 1e100 || (greatest > 0 && greatest < 1e-100) ? std::ldexp(1.0, std::ilogb(greatest))
                                                                   : 1;
}

double sumOf(std::span<const double> numbers, double scale)
{
    KXRunningSum sum;
    for (const double number : numbers)
        sum.add(number / scale);
    return sum.obtainSum();
}

double meanOf(std::span<const double> numbers, double scale)
{
    return numbers.empty() ? none : sumOf(numbers, scale) / static_cast<double>(numbers.size());
}

/** The continued fraction of the incomplete beta function, which ends quickly below the mean of its
 * distribution. */
double obtainBetaFraction(double x, double a, double b)
{
    constexpr double tiny = 1e-300, precision = 1e-15;
    constexpr int greatestDepth = 10'000;
    const auto away = [](double value) { return std::abs(value) < tiny ? tiny : value; };
    double c = 1, d = 1 / away(1 - (a + b) * x / (a + 1));
    double fraction = d;
    for (int m = 1; m <= greatestDepth; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
        d = 1 / away(1 + even * d);
        c = away(1 + even / c);
        fraction *= c * d;
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
        d = 1 / away(1 + odd * d);
        c = away(1 + odd / c);
        const double change = c * d;
        fraction *= change;
        if (std::abs(change - 1) < precision)
            break;
    }
    return fraction;
}

double obtainRegularisedBeta(double x, double a, double b)
{
    if (x <= 0 || x >= 1)
        return x <= 0 ? 0 : 1;
    const double front = std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) + a * std::log(x) +
                                  b * std::log1p(-x));
    return x < (a + 1) / (a + b + 2) ? front * obtainBetaFraction(x, a, b) / a
                                     : 1 - front * obtainBetaFraction(1 - x, b, a) / b;
}

/** @return the part of Student's t that lies beyond t on both sides */
double obtainStudentTails(double t, double freedom)
{
    return obtainRegularisedBeta(freedom / (freedom + t * t), freedom / 2, 0.5);
}

} // namespace

double kxObtainSum(std::span<const double> values)
{
    const std::vector<double> numbers = takeNumbers(values);
    const double scale = obtainScale(numbers);
    return saturate(sumOf(numbers, scale) * scale);
}

double kxObtainMean(std::span<const double> values)
{
    const std::vector<double> numbers = takeNumbers(values);
    const double scale = obtainScale(numbers);
    return meanOf(numbers, scale) * scale;
}

double kxObtainSampleDeviation(std::span<const double> values)
{
    const std::vector<double> numbers = takeNumbers(values);
    if (numbers.size() < 2)
        return none;
    const double scale = obtainScale(numbers);
    const double mean = meanOf(numbers, scale);
    double squares = 0;
    for (const double number : numbers)
        squares += (number / scale - mean) * (number / scale - mean);
    return saturate(std::sqrt(squares / static_cast<double>(numbers.size() - 1)) * scale);
}

double kxObtainPercentile(std::span<const double> values, double share)
{
    std::vector<double> numbers = takeNumbers(values);
    if (numbers.empty() || std::isnan(share))
        return none;
    const double rank = std::clamp(share, 0.0, 1.0) * static_cast<double>(numbers.size() - 1);
    const auto below = numbers.begin() + static_cast<std::ptrdiff_t>(std::floor(rank));
    std::nth_element(numbers.begin(), below, numbers.end());
    const double part = rank - std::floor(rank);
    if (part == 0)
        return *below;
    const double above = *std::min_element(below + 1, numbers.end());
    return *below * (1 - part) + above * part;
}

std::vector<double> kxObtainMovingAverage(std::span<const double> values, std::size_t count)
{
    const std::size_t window = (std::max)(count, std::size_t{1});
    std::vector<double> averages(values.size(), none);
    // Each window is added up anew from two running halves, so that what has left it leaves no rounding
    // behind: sums from each multiple of the window's length onwards, and back to it.
    const double scale = obtainScale(takeNumbers(values));
    struct Part {
        double sum = 0;
        std::size_t count = 0;
    };
    std::vector<Part> onwards(values.size()), back(values.size());
    const auto add = [&](Part part, std::size_t i) {
        return std::isnan(values[i]) ? part : Part{part.sum + values[i] / scale, part.count + 1};
    };
    for (std::size_t i = 0; i < values.size(); ++i)
        onwards[i] = add(i % window == 0 ? Part() : onwards[i - 1], i);
    for (std::size_t i = values.size(); i-- > 0;)
        back[i] = add((i + 1) % window == 0 || i + 1 == values.size() ? Part() : back[i + 1], i);
    for (std::size_t i = window - 1; i < values.size(); ++i) {
        const std::size_t first = i + 1 - window;
        const Part whole = first % window == 0
                               ? onwards[i]
                               : Part{back[first].sum + onwards[i].sum, back[first].count + onwards[i].count};
        if (whole.count > 0)
            averages[i] = whole.sum / static_cast<double>(whole.count) * scale;
    }
    return averages;
}

double KXTrendLine::obtainHalfBand(double x) const
{
    const double distance = x - meanX;
    return studentFactor * standardError *
           std::sqrt(1 / static_cast<double>(count) + distance * distance / spreadX);
}

std::optional<KXTrendLine> kxFitTrendLine(std::span<const double> x, std::span<const double> y,
                                          double confidence)
{
    // 1. Points with both coordinates.
    std::vector<double> xs, ys;
    for (std::size_t i = 0; i < (std::min)(x.size(), y.size()); ++i)
        if (!std::isnan(x[i]) && !std::isnan(y[i])) {
            xs.push_back(x[i]);
            ys.push_back(y[i]);
        }
    if (xs.size() < 2)
        return std::nullopt;

    // 2. The slope, about the means so that large coordinates lose nothing.
    KXTrendLine line;
    line.count = xs.size();
    line.meanX = kxObtainMean(xs);
    line.meanY = kxObtainMean(ys);
    double products = 0;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        line.spreadX += (xs[i] - line.meanX) * (xs[i] - line.meanX);
        products += (xs[i] - line.meanX) * (ys[i] - line.meanY);
    }
    line.slope = products / line.spreadX;
    if (!(line.spreadX > 0) || !std::isfinite(line.slope))
        return std::nullopt;

    // 3. What the points leave of the line.
    line.standardError = line.studentFactor = none;
    if (xs.size() < 3)
        return line;
    double squares = 0;
    for (std::size_t i = 0; i < xs.size(); ++i) {
        const double rest = ys[i] - line.obtainValue(xs[i]);
        squares += rest * rest;
    }
    const double freedom = static_cast<double>(xs.size()) - 2;
    line.standardError = std::sqrt(squares / freedom);
    if (confidence > 0 && confidence < 1)
        line.studentFactor = kxObtainStudentQuantile(0.5 + confidence / 2, freedom);
    return line;
}

double kxObtainStudentQuantile(double probability, double freedom)
{
    if (!(probability > 0) || !(probability < 1) || !(freedom > 0) || std::isinf(freedom))
        return none;
    if (probability < 0.5)
        return -kxObtainStudentQuantile(1 - probability, freedom);
    const double tails = 2 * (1 - probability);
    double low = 0, high = 1;
    while (obtainStudentTails(high, freedom) > tails && high < 1e150)
        high *= 2;
    for (int i = 0; i < 200 && high - low > 1e-15 * high; ++i) {
        const double middle = low + (high - low) / 2;
        (obtainStudentTails(middle, freedom) > tails ? low : high) = middle;
    }
    return low + (high - low) / 2;
}
