#include "kx_value_statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

constexpr double null = NAN;

void expectSame(double actual, double expected, const char* name)
{
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(actual)) << name << " is " << actual;
    else
        EXPECT_NEAR(actual, expected, 1e-12 * std::abs(expected)) << name;
}

} // namespace

TEST(KXValueStatistics, SaysWhatListsAreAsAWhole)
{
    struct Case {
        const char* name;
        std::vector<double> values;
        double sum, mean, deviation, median, tenth;
    };
    const Case cases[] = {
        {"none", {}, 0, null, null, null, null},
        {"only nulls", {null, null}, 0, null, null, null, null},
        {"one", {null, 4}, 4, 4, null, 4, 4},
        {"some", {2, null, 4, 4, 4, 5, 5, 7, 9}, 40, 5, std::sqrt(32.0 / 7), 4.5, 3.4},
        {"unsorted, negative", {3, -1, 2}, 4, 4.0 / 3, std::sqrt(13.0 / 3), 2, -0.4},
        {"what cancels", {1e17, 1, -1e17}, 1, 1.0 / 3, 1e17, 1, -0.8e17 + 0.2},
        {"beyond the squares", {1e300, 3e300}, 4e300, 2e300, std::sqrt(2.0) * 1e300, 2e300, 1.2e300},
        {"beyond the largest", {1.7e308, 1.7e308}, 1.7976931348623157e308, 1.7e308, 0, 1.7e308, 1.7e308},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        expectSame(kxObtainSum(c.values), c.sum, "sum");
        expectSame(kxObtainMean(c.values), c.mean, "mean");
        expectSame(kxObtainSampleDeviation(c.values), c.deviation, "deviation");
        expectSame(kxObtainPercentile(c.values, 0.5), c.median, "median");
        expectSame(kxObtainPercentile(c.values, 0.1), c.tenth, "tenth");
    }
    EXPECT_EQ(kxObtainPercentile(cases[3].values, 7), 9);
}

TEST(KXValueStatistics, AveragesTheLastOnesAnew)
{
    const std::vector<double> values = {1e16, 2, null, 4, 6, null, null, 8};
    const std::vector<double> averages = kxObtainMovingAverage(values, 2);
    const double expected[] = {null, 5e15 + 1, 2, 4, 5, 6, null, 8};
    for (std::size_t i = 0; i < values.size(); ++i)
        expectSame(averages[i], expected[i], "average");
    EXPECT_TRUE(std::isnan(kxObtainMovingAverage(values, 9).back())) << "there are no nine";
    EXPECT_EQ(kxObtainMovingAverage(values, 0)[1], 2);
}

/** Values of a published table of Student's t. */
TEST(KXValueStatistics, KnowsStudentsDistribution)
{
    const struct {
        double probability, freedom, value;
    } rows[] = {{0.975, 1, 12.7062047364},  {0.975, 2, 4.30265272975},
                {0.95, 5, 2.01504837333},   {0.975, 30, 2.0422724563},
                {0.995, 10, 3.16927267262}, {0.025, 2, -4.30265272975},
                {0.975, 1e6, 1.959966},     {0.5, 4, 0}};
    for (const auto& row : rows)
        EXPECT_NEAR(kxObtainStudentQuantile(row.probability, row.freedom), row.value, 1e-6)
            << row.probability << ' ' << row.freedom;
    EXPECT_TRUE(std::isnan(kxObtainStudentQuantile(1, 5)));
    EXPECT_TRUE(std::isnan(kxObtainStudentQuantile(0.5, 0)));
}

TEST(KXValueStatistics, FitsALineWithItsBand)
{
    const std::vector<double> x = {1, 2, 3, null, 4, 5}, y = {2, 3, 5, 100, 4, 6};
    const auto line = kxFitTrendLine(x, y, 0.95);
    ASSERT_TRUE(line);
    expectSame(line->slope, 0.9, "slope");
    expectSame(line->obtainValue(0), 1.3, "intercept");
    // Residuals -0.2, -0.1, 1, -0.9, 0.2: their squares are 1.9, three degrees of freedom are left.
    const double error = std::sqrt(1.9 / 3);
    expectSame(line->standardError, error, "error");
    EXPECT_NEAR(line->obtainHalfBand(5), 3.18244630528 * error * std::sqrt(0.2 + 4 / 10.0), 1e-9);
    EXPECT_TRUE(std::isnan(kxFitTrendLine(x, y, 0)->obtainHalfBand(3))) << "not asked for";
    EXPECT_TRUE(std::isnan(
        kxFitTrendLine(std::vector<double>{1, 2}, std::vector<double>{1, 2}, 0.9)->obtainHalfBand(3)));
    EXPECT_FALSE(kxFitTrendLine(std::vector<double>{3, 3, 3}, y, 0.95)) << "all at one place";
    EXPECT_FALSE(kxFitTrendLine(std::vector<double>{3}, y, 0.95));
    const std::vector<double> far = {1.7e9, 1.7e9 + 1, 1.7e9 + 2};
    expectSame(kxFitTrendLine(far, std::vector<double>{1, 2, 3}, 0.95)->slope, 1, "dates far from the epoch");
}
