#include "kx_trend_chart.h"

#include "kx_axis_chart_property.h"
#include "kx_calendar_time.h"
#include "kx_chart_diagnostic.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_kpi_chart.h"
#include "kx_table_data_provider.h"
#include "kx_trend_steps.h"
#include "kx_value_chart.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Texts = std::vector<std::string>;
using Values = std::vector<double>;

double at(int year, int month, int day) { return kxObtainCalendarSeconds({year, month, day}); }

TEST(KXTrendSteps, TheSameTimeAYearBefore)
{
    constexpr auto day = KXChartAggregateType::Day, week = KXChartAggregateType::Week,
                   month = KXChartAggregateType::WithoutDay, quarter = KXChartAggregateType::Quarter,
                   none = KXChartAggregateType::None;
    const std::tuple<const char*, Values, KXChartAggregateType, int> cases[] = {
        {"the same month", {at(2014, 11, 1), at(2014, 12, 1), at(2015, 1, 1), at(2015, 12, 1)}, month, 1},
        {"months missing", {at(2014, 11, 1), at(2015, 1, 1), at(2015, 12, 1)}, month, -1},
        {"a month is one whatever day names it",
         {at(2014, 12, 31), at(2015, 1, 5), at(2015, 12, 1)},
         month,
         0},
        {"the same quarter", {at(2014, 9, 30), at(2014, 12, 31), at(2015, 10, 1)}, quarter, 1},
        {"ends of months", {at(2016, 2, 29), at(2016, 3, 31), at(2017, 2, 28)}, none, 0},
        {"dates that end none", {at(2016, 2, 29), at(2016, 3, 30), at(2017, 2, 28)}, none, -1},
        {"February 29", {at(2015, 2, 28), at(2015, 3, 1), at(2016, 2, 29)}, day, 0},
        {"the 28th goes to the 28th", {at(2016, 2, 28), at(2016, 2, 29), at(2017, 2, 28)}, day, 0},
        {"a date in another order", {at(2015, 6, 5), at(2014, 6, 5), at(2016, 6, 5)}, day, 0},
        {"52 weeks", {at(2014, 12, 29), at(2015, 1, 5), at(2015, 12, 28)}, week, 0},
        {"a week of the same date is another one", {at(2014, 12, 28), at(2015, 12, 28)}, week, -1},
        {"no number", {at(2014, 1, 1), null}, day, -1},
    };
    for (const auto& [name, numbers, level, expected] : cases) {
        const KXTrendSteps steps{numbers, numbers.size(), KXChartDataType::Date, level};
        const std::optional<std::size_t> found = steps.findYearBefore(numbers.size() - 1);
        EXPECT_EQ(found ? static_cast<int>(*found) : -1, expected) << name;
    }
    const Values years{2013, 2014, 2016};
    const KXTrendSteps steps{years, 3, KXChartDataType::Integer, {}};
    EXPECT_EQ(steps.findYearBefore(1), 0);
    EXPECT_EQ(steps.findYearBefore(2), std::nullopt);
    EXPECT_EQ(steps.findBack(2, 2), 0);
    EXPECT_EQ(steps.findBack(2, 3), std::nullopt);
    EXPECT_EQ(steps.findBack(2, 0), std::nullopt);
}

/** A trend over months, without a title. */
class KXTrendChartTest : public testing::Test {
protected:
    KXTrendChartTest() { chart.getChartProperty()->setShowTitle(false); }

    void show(const Texts& months, Values values, const UXRect& rect = {0, 0, 402, 302})
    {
        table.clear();
        table.addDimension("Month", months, KXChartDataType::Date);
        table.addMeasure("Jobs", std::move(values));
        table.serve(chart);
        chart.setRect(rect);
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }
    std::string tell(KXTrendChart::Line line) { return chart.obtainLineText(line); }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXTrendChart chart;
};

TEST_F(KXTrendChartTest, TellsTheLastValueAndItsChange)
{
    const Texts months{"2014-11-01", "2014-12-01", "2015-10-01", "2015-11-01", "2015-12-01"};
    using enum KXTrendComparison;
    struct Case {
        const char* name;
        KXTrendComparison compareTo;
        int back;
        bool omitLast;
        Values values;
        const char *value, *period, *difference, *percentage;
    };
    const Case cases[] = {
        {"previous",
         Previous,
         1,
         false,
         {1, 2, 3, 40, 50},
         "50",
         "2015-12-01",
         "+10 since 2015-11-01",
         "+25.0 % since 2015-11-01"},
        {"a running month",
         Previous,
         1,
         true,
         {1, 2, 3, 40, 50},
         "40",
         "2015-11-01",
         "+37 since 2015-10-01",
         "+1,233.3 % since 2015-10-01"},
        {"which has no value yet",
         Previous,
         1,
         true,
         {1, 2, 3, 4, null},
         "4",
         "2015-11-01",
         "+1 since 2015-10-01",
         "+33.3 % since 2015-10-01"},
        {"the last one that is there",
         Previous,
         1,
         false,
         {1, 2, 3, 4, null},
         "4",
         "2015-11-01",
         "+1 since 2015-10-01",
         "+33.3 % since 2015-10-01"},
        {"never a neighbour",
         Previous,
         1,
         false,
         {1, 2, 3, null, 5},
         "5",
         "2015-12-01",
         "-- since 2015-11-01",
         "-- since 2015-11-01"},
        {"steps back",
         StepsBack,
         4,
         false,
         {-1, 2, 3, 4, -5},
         "-5",
         "2015-12-01",
         "-4 since 2014-11-01",
         "-400.0 % since 2014-11-01"},
        {"more than there are", StepsBack, 5, false, {1, 2, 3, 4, 5}, "5", "2015-12-01", "--", "--"},
        {"a year before",
         YearBefore,
         1,
         false,
         {1, 4, 3, 4, 5},
         "5",
         "2015-12-01",
         "+1 since 2014-12-01",
         "+25.0 % since 2014-12-01"},
        {"which is missing", YearBefore, 1, false, {1, 4, 9, null, null}, "9", "2015-10-01", "--", "--"},
        {"from zero",
         YearBefore,
         1,
         false,
         {1, 0, 3, 4, 5},
         "5",
         "2015-12-01",
         "+5 since 2014-12-01",
         "-- since 2014-12-01"},
        {"what only a division leaves",
         Previous,
         1,
         false,
         {1, 2, 3, 0.3, 0.1 + 0.2},
         "0.30",
         "2015-12-01",
         "0.00 since 2015-11-01",
         "0.0 % since 2015-11-01"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        chart.setCompareTo(c.compareTo);
        chart.setCompareBack(c.back);
        chart.setOmitLast(c.omitLast);
        show(months, c.values);
        EXPECT_EQ(tell(KXTrendChart::Value), c.value);
        EXPECT_EQ(tell(KXTrendChart::Period), c.period);
        chart.setDiffDisplay(KXTrendChartDiffDisplay::Value);
        EXPECT_EQ(tell(KXTrendChart::Change), c.difference);
        chart.setDiffDisplay(KXTrendChartDiffDisplay::Percentage);
        EXPECT_EQ(tell(KXTrendChart::Change), c.percentage);
    }
    show(months, Values(5, null));
    EXPECT_EQ(chart.getToldStep(), std::nullopt);
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"No data"}), "");
}

TEST_F(KXTrendChartTest, TheValueStandsForItsStep)
{
    show({"2015-10-01", "2015-11-01", "2015-12-01"}, {3, 1, 2});
    EXPECT_EQ(chart.obtainItemAt({20, 20}), (KXChartItem{0, 0, 2}));
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"Jobs\"", "\"2\"", "\"2015-12-01\""}), "");
    EXPECT_TRUE(chart.hasItem({0, 0, 1})) << "and the line has its own";
}

TEST_F(KXTrendChartTest, TellsOfNoMeasureThatItDoesNotShow)
{
    show({"2015-10-01", "2015-11-01", "2015-12-01"}, {3, -1, 2});
    table.addMeasure("Costs", {0, -2, -3});
    chart.getAxisChartProperty()->setIsYLogarithmic(true);
    table.serve(chart);
    chart.layout();
    const std::vector<KXChartDiagnostic> told = chart.diagnostics();
    const auto leftOut = std::ranges::find(told, KXChartDiagnosticKind::LeftOutValue,
                                           &KXChartDiagnostic::kind);
    ASSERT_NE(leftOut, told.end());
    EXPECT_EQ(leftOut->count, 1u);
}

TEST_F(KXTrendChartTest, StandsOnOneLineWithOtherFigures)
{
    KXTableDataProvider one;
    one.addMeasure("Jobs", {2});
    KXKpiChart kpi;
    KXValueChart value;
    for (const bool isLow : {false, true}) {
        const UXRect rect{0, 0, 300, isLow ? 60 : 200};
        for (KXChart* each : std::initializer_list<KXChart*>{&chart, &kpi, &value}) {
            each->getChartProperty()->setShowTitle(true);
            each->getChartProperty()->setTitleValue("Title");
            each->init();
            each->setRect(rect);
        }
        one.serve(kpi);
        one.serve(value);
        show({"2015-11-01", "2015-12-01"}, {1, 2}, rect);
        kpi.layout();
        value.layout();
        const UXDoubleRect trendPlace = chart.obtainLineRect(KXTrendChart::Value);
        const UXDoubleRect kpiPlace = kpi.getPlacedTexts().at(0).rect;
        const UXRect valuePlace = value.getValueLabel()->getRect();
        EXPECT_EQ(kpi.getPlacedTexts().at(0).text, "2");
        EXPECT_EQ(trendPlace.y, kpiPlace.y);
        EXPECT_EQ(trendPlace.height, kpiPlace.height);
        EXPECT_EQ(valuePlace.y, kpiPlace.y);
        if (!isLow) {
            EXPECT_EQ(valuePlace.height, kpiPlace.height);
        }
    }
}

} // namespace
