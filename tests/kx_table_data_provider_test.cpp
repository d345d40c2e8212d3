#include "kx_bar_chart.h"
#include "kx_gauge_chart.h"
#include "kx_table_data_provider.h"
#include "kx_value_chart.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();

using Texts = std::vector<std::string>;

/** What a bar chart has pulled: "category category | label: value value | ...", a dash for a null. */
std::string describe(KXBarChart& chart)
{
    std::string text;
    for (std::uint64_t category = 0; category < chart.getCategoryCount(); ++category)
        text += (category > 0 ? " " : "") + chart.obtainCategoryText(category);
    for (std::uint64_t series = 0; series < chart.getSeriesCount(); ++series) {
        text += " | " + chart.getSeriesLabel(series) + ":";
        for (const double value : chart.getSeriesValues(series))
            text += " " + (std::isnan(value) ? "-" : KXDataColumn({value}).obtainText(0));
    }
    return text;
}

/** Counts the questions that a whole preparation begins with. */
class CountingTable : public KXTableDataProvider {
public:
    int preparations = 0;

    void beginPrepareData(KXChartDataUser* user) override
    {
        ++preparations;
        KXTableDataProvider::beginPrepareData(user);
    }
};

} // namespace

TEST(KXTableDataProvider, ShowsColumnsAsBars)
{
    struct Case {
        const char* name;
        std::vector<KXDataColumn> dimensions, measures;
        std::string expected;
    };
    const Case cases[] = {
        {"a row is a category", {Texts{"a", "b", "a"}}, {{1.5, -2, 3}}, "a b a | m0: 1.5 -2 3"},
        {"numbers name rows", {{2023, 2024}}, {{1, null}, {3, 4}}, "2023 2024 | m0: 1 - | m1: 3 4"},
        {"columns of different length", {Texts{"a", "b"}}, {{1}, {2, 3, 4}}, "a b | m0: 1 - | m1: 2 3"},
        {"texts are no bars", {Texts{"a"}}, {Texts{"x"}, {1}}, "a | m0: - | m1: 1"},
        {"members in the order of their first rows",
         {Texts{"b", "a", "b", "c"}, Texts{"y", "y", "x", "x"}},
         {{1, 2, 3, 4}},
         "b a c | y: 1 2 - | x: 3 - 4"},
        {"the last of several rows",
         {Texts{"a", "a", "b"}, Texts{"x", "x", "x"}},
         {{1, 2, 3}},
         "a b | x: 2 3"},
        {"measures by members",
         {Texts{"a", "a"}, {7, 8}},
         {{1, 2}, {3, 4}},
         "a | 7 - m0: 1 | 8 - m0: 2 | 7 - m1: 3 | 8 - m1: 4"},
        {"the first member of a third",
         {Texts{"a", "a"}, Texts{"x", "x"}, Texts{"p", "q"}},
         {{1, 2}},
         "a | x: 1"},
        {"rows that a dimension lacks", {Texts{"a", "b"}, Texts{"x"}}, {{1, 2}}, "a | x: 1"},
        {"no rows", {Texts{}}, {std::vector<double>()}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXTableDataProvider table;
        for (const KXDataColumn& column : c.dimensions)
            table.addDimension("d", column);
        for (std::size_t i = 0; i < c.measures.size(); ++i)
            table.addMeasure("m" + std::to_string(i), c.measures[i]);
        KXBarChart chart;
        table.serve(chart);
        EXPECT_EQ(describe(chart), c.expected);
        EXPECT_EQ(chart.preparedAndReloadedData(), !c.expected.empty());
    }
}

TEST(KXTableDataProvider, ServesPanelsWithItsFirstRow)
{
    KXTableDataProvider table;
    table.addMeasure("Revenue", {40, 1});
    KXValueChart value;
    table.serve(value);
    EXPECT_EQ(value.getNumber(), 40);
    table.addMeasure("Target", {50});
    table.addMeasure("From", {null});
    KXGaugeChart gauge;
    table.serve(gauge);
    EXPECT_EQ(gauge.getValueData(), 40);
    EXPECT_EQ(gauge.getTargetData(), 50);
    EXPECT_EQ(gauge.getMinData(), KXGaugeChartDataUser::noValue);
}

TEST(KXTableDataProvider, NumbersOfDatesAndTimes)
{
    struct Case {
        const char* text;
        KXChartDataType type;
        double expected;
    };
    const Case cases[] = {
        {"1970-01-02", KXChartDataType::Date, 86400},
        {"1969-12-31 23:00:30", KXChartDataType::DateTime, -3570},
        {"01:02:03", KXChartDataType::Time, 3723},
        {"soon", KXChartDataType::Date, null},
        {"1970-01-02", KXChartDataType::String, null},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        KXTableDataProvider table;
        table.addDimension("d", {std::string(c.text)}, c.type);
        const double number = table.obtainDimensionDataAsNumber(nullptr, {0, 0});
        EXPECT_TRUE(number == c.expected || (std::isnan(number) && std::isnan(c.expected))) << number;
    }
}

TEST(KXTableDataProvider, TellsTheChartsThatItServesWhatChanges)
{
    std::vector<double> borrowed{1, 2};
    CountingTable table, other;
    table.addDimension("Region", {"a", "b"});
    table.addMeasure("m", KXDataColumn::borrow(borrowed));
    other.addMeasure("n", {9});
    KXBarChart chart, moved;
    auto gone = std::make_unique<KXBarChart>();
    for (KXBarChart* each : {&chart, &moved, gone.get()})
        table.serve(*each);
    other.serve(moved);
    gone.reset();
    table.preparations = other.preparations = 0;

    borrowed[1] = 5;
    table.dataChanged();
    EXPECT_EQ(describe(chart), "a b | m: 1 5");
    EXPECT_EQ(table.preparations, 1);

    table.beginUpdate();
    table.replaceDimension(0, {"c", "d", "e"});
    table.replaceMeasure(0, {7, 8, 9});
    table.replaceMeasure(5, {1});
    EXPECT_EQ(table.preparations, 1);
    table.endUpdate();
    EXPECT_EQ(describe(chart), "c d e | m: 7 8 9");
    EXPECT_EQ(table.preparations, 2);

    table.setSeriesColor(0, {1, 2, 3});
    EXPECT_EQ(chart.obtainSeriesColor(0), UXColor(1, 2, 3));
    EXPECT_EQ(table.preparations, 2);
    EXPECT_EQ(other.preparations, 0);
}

TEST(KXTableDataProvider, IsAskedAgainForTextsThatTakeTooMuchRoomToKeep)
{
    class LongTexts : public KXTableDataProvider {
    public:
        int asked = 0;
        std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath&) override
        {
            ++asked;
            return std::string(std::size_t{1} << 20, 'x');
        }
    };
    LongTexts table;
    table.addDimension("d", Texts(40));
    table.addMeasure("m", std::vector<double>(40, 1.0));
    KXBarChart chart;
    table.serve(chart);
    const auto ask = [&](std::uint64_t first, std::uint64_t count) {
        table.asked = 0;
        for (std::uint64_t category = first; category < first + count; ++category)
            (void)chart.obtainCategoryText(category);
        return table.asked;
    };
    EXPECT_EQ(ask(0, 40), 40);
    EXPECT_EQ(ask(39, 1), 0);
    EXPECT_EQ(ask(0, 1), 1);
}

TEST(KXTableDataProvider, MayGoBeforeItsCharts)
{
    KXBarChart chart;
    auto table = std::make_unique<KXTableDataProvider>();
    table->addDimension("d", {"a"});
    table->addMeasure("m", {1});
    chart.setDataProvider(table.get()); // a chart that prepares by itself is served as well
    chart.prepareData();
    chart.reloadData();
    table.reset();
    EXPECT_EQ(chart.beginUseDataProvider(), nullptr);
    EXPECT_EQ(describe(chart), " | m: 1");
}
