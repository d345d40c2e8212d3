#include "kx_load_chart.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_pie_chart.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

namespace {

TEST(KXPanelChartDataUser, KeepsDenseColumnsAndAsksForTextsOnDemand)
{
    /** Answers what it is asked for: the value of a cell is made of its path. */
    class Grid : public KXPanelChartDataProvider {
    public:
        std::vector<std::uint64_t> counts;
        int textsAsked = 0;

        void beginPrepareData(KXChartDataUser*) override {}
        void endPrepareData(KXChartDataUser*) override {}
        bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
        std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
        {
            return dimension < counts.size() ? counts[dimension] : 0;
        }
        std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
        {
            ++textsAsked;
            return "m" + std::to_string(path.at(1));
        }
        std::uint64_t obtainValueCount(KXChartDataUser*) override { return 2; }
        bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path) override
        {
            return path.back() == 1;
        }
        double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
        {
            double value = 0;
            for (const std::uint64_t index : path)
                value = 10 * value + static_cast<double>(index);
            return path.back() == 3 ? INFINITY : value;
        }
    };
    const std::tuple<const char*, std::vector<std::uint64_t>, std::vector<double>> cases[] = {
        {"no dimension", {}, {10}},
        {"one", {3}, {10, NAN, 12}},
        {"two", {2, 4}, {100, NAN, 102, NAN, 110, NAN, 112, NAN}},
        {"a second one without members", {2, 0}, {10, NAN}},
    };
    for (const auto& [name, counts, expected] : cases) {
        SCOPED_TRACE(name);
        const UXFixedMeasurer measurer;
        Grid grid;
        grid.counts = counts;
        KXPieChart chart;
        kxLoad(chart, grid, {0, 0, 300, 200});
        ASSERT_EQ(chart.getMeasureCount(), 2);
        ASSERT_EQ(chart.getValues(1).size(), expected.size());
        for (std::size_t cell = 0; cell < expected.size(); ++cell) {
            EXPECT_TRUE(std::isnan(expected[cell]) ? std::isnan(chart.getValue(1, cell))
                                                   : chart.getValue(1, cell) == expected[cell]);
            EXPECT_EQ(chart.obtainValuePath(1, cell).back(),
                      counts.size() > 1 && counts[1] ? cell % counts[1] : cell);
        }
        EXPECT_TRUE(std::isnan(chart.getValue(2, 0)));
        const int asked = grid.textsAsked;
        EXPECT_EQ(chart.obtainMemberText(0, 1), counts.empty() ? "" : "m1");
        EXPECT_EQ(grid.textsAsked, asked) << "known since the legend showed it";
    }
}

} // namespace
