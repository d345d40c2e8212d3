#include "kx_axis_chart_data_user.h"

#include "kx_axis_chart_property.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_chart.h"
#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <limits>
#include <span>
#include <tuple>
#include <utility>

namespace {

constexpr double null = KXAxisChartTestProvider::null;
constexpr double infinite = std::numeric_limits<double>::infinity();

class DataChart : public KXChart, public KXAxisChartDataUser {
public:
    DataChart() : KXAxisChartDataUser(this) {}
    void customReloadData() override {}

protected:
    void _customLayout(UXRect) override {}
};

} // namespace

TEST(KXAxisChartProperty, EveryKey) { KX_WALK_KEYS(KXAxisChartProperty, KX_AXIS_CHART_PROPERTY_KEYS); }

TEST(KXAxisChartDataUser, PullsEachValueOnceAndTextsOnDemand)
{
    KXAxisChartTestProvider provider;
    provider.values = {{1, null, -3}, {infinite, 5, 6}};
    provider.categoryType = KXChartDataType::Integer;
    DataChart chart;
    chart.setDataProvider(&provider);
    chart.prepareData();
    chart.reloadData();
    EXPECT_TRUE(chart.preparedAndReloadedData());
    EXPECT_EQ(provider.asked["isNull"], 6);
    EXPECT_EQ(provider.asked["value"], 5);
    EXPECT_TRUE(provider.askedTexts.empty());
    EXPECT_EQ(provider.asked["number"], 0);
    EXPECT_EQ(chart.getSeriesCount(), 2);
    EXPECT_EQ(chart.getSeriesLabel(1), "s1");
    EXPECT_EQ(chart.getValue(0, 2), -3);
    EXPECT_EQ(chart.getMeasureLabel(), "");
    for (const auto& [series, category] : {std::pair{0, 1}, {1, 0}, {0, 3}, {2, 0}})
        EXPECT_TRUE(std::isnan(
            chart.getValue(static_cast<std::uint64_t>(series), static_cast<std::uint64_t>(category))));

    for (const std::uint64_t category : std::vector<std::uint64_t>{2, 2, 0, 2, 3})
        EXPECT_EQ(chart.obtainCategoryText(category), category < 3 ? "c" + std::to_string(category) : "");
    EXPECT_EQ(provider.askedTexts, (std::vector<std::uint64_t>{2, 0}));
    EXPECT_EQ(chart.obtainCategoryNumbers(), (std::vector<double>{0, 1, 2}));
    EXPECT_EQ(chart.obtainCategoryNumbers().size(), 3);
    EXPECT_EQ(provider.asked["number"], 3);
    provider.categoryNumber = [](std::uint64_t category) { return category == 1 ? null : 0; };
    chart.prepareData();
    EXPECT_EQ(chart.obtainCategoryNumbers().size(), 3) << "a category without a number among others";
    EXPECT_TRUE(std::isnan(chart.obtainCategoryNumbers().at(1)));
    provider.valueType = KXChartDataType::Date;
    chart.prepareData();
    EXPECT_FALSE(chart.preparedData()) << "a measure without numbers";
}

TEST(KXAxisChartDataUser, SeriesAreMeasuresDividedByTheMembersOfTheSecondDimension)
{
    KXAxisChartTestProvider provider;
    provider.memberCount = 2;
    provider.values = {{0, 10, 1, 11, 2, 12}, {100, 110, 101, 111, 102, 112}};
    DataChart chart;
    chart.setDataProvider(&provider);
    chart.prepareData();
    ASSERT_EQ(chart.getSeriesCount(), 4);
    EXPECT_EQ(chart.getSeriesValues(3), (std::vector<double>{110, 111, 112}));
    EXPECT_EQ(chart.getSeriesLabel(3), "c1 - s1");
    EXPECT_EQ(chart.getSeriesID(2), "s1/c0");
    EXPECT_EQ(provider.obtainSeriesValuePath(&chart, 3, 2), (KXIndexPath{1, 2, 1}));
    EXPECT_EQ(provider.obtainSeriesValue(&chart, 1, 2), 12);
}

TEST(KXAxisChartDataUser, PullsNoMoreThanAChartHolds)
{
    /** Claims any number of series and categories, and may go once it sees how many are pulled. */
    struct Provider : KXAxisChartTestProvider {
        std::uint64_t obtainSeriesCount(KXChartDataUser*) override { return seriesCount; }
        std::string obtainSeriesLabel(KXChartDataUser*, std::uint64_t) override { return {}; }
        KXIndexPath obtainSeriesValuePath(KXChartDataUser*, std::uint64_t, std::uint64_t category) override
        {
            return {0, category};
        }
        void obtainSeriesValues(KXChartDataUser* user, std::uint64_t, std::uint64_t,
                                std::span<double> numbers) override
        {
            pulledCount += numbers.size();
            ++pulledSeries;
            if (categoryCount > 2)
                user->setDataProvider(nullptr);
        }
        std::uint64_t seriesCount = 0, pulledSeries = 0, pulledCount = 0;
    };
    constexpr std::uint64_t most = (std::numeric_limits<std::uint64_t>::max)();
    for (const auto& [series, categories, pulledSeries, pulledCount] :
         {std::tuple(most, std::uint64_t{2}, 10'000u, 20'000u), {most, most, 1u, (1u << 27) / 10'000}}) {
        Provider provider;
        provider.seriesCount = series;
        provider.categoryCount = categories;
        DataChart chart;
        chart.setDataProvider(&provider);
        chart.prepareData();
        EXPECT_EQ(provider.pulledSeries, pulledSeries);
        EXPECT_EQ(provider.pulledCount, pulledCount);
    }
}

TEST(KXAxisChartDataUser, ManyValuesArriveInTheirPlacesAndNoneStaysFromBefore)
{
    struct Provider : KXAxisChartTestProvider {
        void obtainSeriesValues(KXChartDataUser*, std::uint64_t, std::uint64_t first,
                                std::span<double> some) override
        {
            for (std::size_t i = 0; i < some.size(); ++i)
                if (first + i != leftOut)
                    some[i] = first + i == 69'000 ? infinite : static_cast<double>(first + i);
        }
        std::uint64_t leftOut = 0;
    } provider;
    provider.categoryCount = 70'000;
    DataChart chart;
    chart.setDataProvider(&provider);
    for (const std::uint64_t leftOut : {std::uint64_t{3}, std::uint64_t{69'999}}) {
        provider.leftOut = leftOut;
        chart.prepareData();
        for (const std::uint64_t category : {3u, 65'535u, 65'536u, 69'998u, 69'999u})
            if (category != leftOut) {
                EXPECT_EQ(chart.getValue(0, category), static_cast<double>(category));
            }
        EXPECT_TRUE(std::isnan(chart.getValue(0, leftOut)));
        EXPECT_TRUE(std::isnan(chart.getValue(0, 69'000))) << "it was infinite";
        EXPECT_EQ(chart.obtainValueRange({0}, 70'000, false).max, leftOut == 3 ? 69'999 : 69'998);
    }
}

TEST(KXAxisChartDataUser, Ranges)
{
    constexpr double largest = (std::numeric_limits<double>::max)();
    using Values = std::vector<std::vector<double>>;
    struct Case {
        const char* name;
        Values values;
        std::vector<std::uint64_t> series;
        std::uint64_t count;
        KXAxisChartValueRange expected;
    };
    const Case cases[] = {
        {"signs stack apart", {{1, -2, 3}, {4, -5, null}}, {0, 1}, 9, {-5, 4, -7, 5}},
        {"one series", {{1, -2, 3}, {4, -5, null}}, {0}, 9, {-2, 3, -2, 3}},
        {"the first categories", {{1, -2, 3}}, {0}, 1, {1, 1, 0, 1}},
        {"no number", {{null, null, null}}, {0}, 9, {}},
        {"no such series", {{1, 2, 3}}, {7}, 9, {}},
        {"sums beyond a double",
         {{largest, -largest, 0}, {largest, -largest, 0}},
         {0, 1},
         3,
         {-largest, largest, -largest, largest}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXAxisChartTestProvider provider;
        provider.values = c.values;
        DataChart chart;
        chart.setDataProvider(&provider);
        chart.prepareData();
        EXPECT_EQ(chart.obtainValueRange(c.series, c.count, true), c.expected);

        if (!c.series.empty() && c.series[0] == 0) {
            const double* before = chart.getSeriesValues(0).data();
            chart.prepareData();
            EXPECT_EQ(chart.getSeriesValues(0).data(), before) << "replaced in the memory that is there";
        }
    }
}
