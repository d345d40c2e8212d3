#include "kx_kpi_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_table_data_provider.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Texts = std::vector<std::string>;
using enum KXKpiStatus;

/** A KPI chart over a table, without a title. */
class KXKpiChartTest : public testing::Test {
protected:
    KXKpiChartTest() { chart.getChartProperty()->setShowTitle(false); }

    void show(std::vector<double> actual, std::vector<double> comparison, const UXSize& size = {600, 400})
    {
        table.clear();
        if (actual.size() > 1) {
            Texts names;
            for (std::size_t i = 0; i < actual.size(); ++i)
                names.push_back("n" + std::to_string(i));
            table.addDimension("Name", names);
        }
        table.addMeasure("Sales", std::move(actual));
        table.addMeasure("Target", std::move(comparison));
        table.serve(chart);
        layOut(size);
    }
    void layOut(const UXSize& size)
    {
        chart.setRect({0, 0, size.width, size.height});
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXKpiChart chart;
};

TEST_F(KXKpiChartTest, DifferencesPercentagesAndProgressAgainstATableByHand)
{
    struct Case {
        const char* name;
        double actual, comparison;
        const char *difference, *progress, *both;
        KXKpiStatus status;
    };
    const Case cases[] = {
        {"above", 120, 100, "+20 (+20.0 %)", "120.0 %", "120 (120.0 %)", Good},
        {"equal", 100, 100, "0 (0.0 %)", "100.0 %", "100 (100.0 %)", Good},
        {"near", 95, 100, "-5 (-5.0 %)", "95.0 %", "95 (95.0 %)", Fair},
        {"at the lower threshold", 90, 100, "-10 (-10.0 %)", "90.0 %", "90 (90.0 %)", Fair},
        {"below", 89.9, 100, "-10.10 (-10.1 %)", "89.9 %", "89.90 (89.9 %)", Poor},
        {"nothing yet", 0, 50, "-50 (-100.0 %)", "0.0 %", "0 (0.0 %)", Poor},
        {"a loss against a gain", -50, 100, "-150 (-150.0 %)", "-50.0 %", "-50 (-50.0 %)", Poor},
        {"half of a loss", -50, -100, "+50 (+50.0 %)", "", "-50 (50.0 %)", Good},
        {"a larger loss", -105, -100, "-5 (-5.0 %)", "", "-105 (105.0 %)", Fair},
        {"a gain against a loss", 25, -100, "+125 (+125.0 %)", "", "25 (-25.0 %)", Good},
        {"base zero", 5, 0, "+5 (--)", "", "5 (--)", None},
        {"zero and zero", 0, 0, "0 (--)", "", "0 (--)", None},
        {"base null", 5, null, "--", "", "5 (--)", None},
        {"actual null", null, 100, "--", "", "-- (--)", None},
        {"no sign for what rounds to zero", 100.04, 100, "+0.04 (0.0 %)", "100.0 %", "100.04 (100.0 %)",
         Good},
        {"nor below", 99.96, 100, "-0.04 (0.0 %)", "100.0 %", "99.96 (100.0 %)", Fair},
        {"what only a division leaves", 0.1 + 0.2, 0.3, "0.00 (0.0 %)", "100.0 %", "0.30 (100.0 %)", Good},
        {"a little less", 0.299, 0.3, "0.00 (-0.3 %)", "99.7 %", "0.30 (99.7 %)", Fair},
        {"beyond all numbers", 1e308, -1e308, "--", "", "", Good},
    };
    chart.setMainDisplay(KXKpiChartMainDisplay::Both);
    chart.setShowStatus(false);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        show({c.actual, 1}, {c.comparison, 1}); // the second panel keeps nulls from being no data
        EXPECT_EQ(chart.obtainLineText(0, KXKpiChart::Difference), c.difference);
        EXPECT_EQ(chart.obtainLineText(0, KXKpiChart::Progress), c.progress);
        if (*c.both) {
            EXPECT_EQ(chart.obtainLineText(0, KXKpiChart::Value), c.both);
        }
        EXPECT_EQ(chart.obtainStatus(0), c.status);
        const bool isTold = c.status != None && std::isfinite(c.actual - c.comparison) &&
                            std::string(c.difference).find_first_of("123456789") != std::string::npos;
        double indent = 0;
        for (const KXFigureChart::PlacedText& text : chart.getPlacedTexts())
            if (text.item.group == 0 && text.line == KXKpiChart::Difference)
                indent = text.indent;
        EXPECT_EQ(indent > 0, isTold) << "the arrow";
    }
}

TEST(KXChartKpiPanel, ThresholdsAndBoundsDecide)
{
    using Values = std::vector<double>;
    const std::tuple<const char*, double, Values, double, double, bool, KXKpiStatus> cases[] = {
        {"lower is better", 100, {90, 100}, null, null, false, Good},
        {"up to a tenth more", 110, {90, 100}, null, null, false, Fair},
        {"told in that direction", 110, {110, 100}, null, null, false, Fair},
        {"more than that", 110.5, {90, 100}, null, null, false, Poor},
        {"one threshold", 99, {100}, null, null, true, Poor},
        {"none", 99, {}, null, null, true, None},
        {"bounds instead: between", 15, {90, 100}, 10, 20, true, Fair},
        {"above", 20, {90, 100}, 10, 20, true, Good},
        {"below", 9, {90, 100}, 10, 20, true, Poor},
        {"above, where lower is better", 21, {90, 100}, 10, 20, false, Poor},
        {"one bound", 9, {}, 10, null, true, Poor},
    };
    for (const auto& [name, actual, thresholds, lower, upper, higherIsBetter, status] : cases)
        EXPECT_EQ(KXChartKpiPanel(0, actual, 100, lower, upper).obtainStatus(thresholds, higherIsBetter),
                  status)
            << name;
    EXPECT_EQ(KXChartKpiPanel(0, 5, null, 1, 2).obtainStatus({}, true), Good) << "without a comparison";
}

TEST(KXKpiChartDocument, OfTheFirstVersionBecomesThePresentOne)
{
    const std::tuple<const char*, KXKpiChartMainDisplay> cases[] = {
        {R"("version":"1.0","m_showComparison":true)", KXKpiChartMainDisplay::Both},
        {R"("version":"1.0","m_showComparison":false)", KXKpiChartMainDisplay::Actual},
        {R"("version":"1.0")", KXKpiChartMainDisplay::Actual},
        {R"("version":"1.0","m_showComparison":true,"m_mainDisplay":"Comparison")",
         KXKpiChartMainDisplay::Comparison},
        {R"("version":"1.1","m_showComparison":true)", KXKpiChartMainDisplay::Comparison},
        {R"("version":"1.10","m_showComparison":true)", KXKpiChartMainDisplay::Comparison},
        {R"("version":"01.5","m_showComparison":true)", KXKpiChartMainDisplay::Comparison},
        {R"("version":"1.09","m_showComparison":true)", KXKpiChartMainDisplay::Both},
    };
    for (const auto& [keys, expected] : cases) {
        KXKpiChart chart;
        chart.setMainDisplay(KXKpiChartMainDisplay::Comparison); // left over from before
        chart.deserialize(std::string(R"({"type":"KXKpiChart",)") + keys + "}");
        EXPECT_EQ(chart.getMainDisplay(), expected) << keys;
        const std::string written = chart.serialize();
        EXPECT_EQ(written.find("m_showComparison\""), std::string::npos) << keys;
        EXPECT_NE(written.find("\"1.1\""), std::string::npos) << keys;
    }
}

TEST_F(KXKpiChartTest, PanelsShareOneSizeAndOneLine)
{
    chart.setColumnCount(3);
    show({1, 1234567, 12}, {1, 1, 1}, {480, 160});
    int size = 0;
    double y = -1;
    for (const KXFigureChart::PlacedText& text : chart.getPlacedTexts()) {
        if (text.line != KXKpiChart::Value)
            continue;
        EXPECT_TRUE(size == 0 || size == text.property.font.size);
        EXPECT_TRUE(y < 0 || y == text.rect.y);
        size = text.property.font.size;
        y = text.rect.y;
    }
    EXPECT_LT(size, chart.getValueProperty().font.size) << "as the widest one wants it";
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"1\"", "\"1,234,567\"", "\"n2\""}), "");

    // A single panel under a title stands where a value chart has its value.
    show({42}, {40}, {300, 120});
    chart.getChartProperty()->setShowTitle(true);
    layOut({300, 120});
    EXPECT_EQ(chart.getPlacedTexts().at(0).line, KXKpiChart::Value);
}

TEST_F(KXKpiChartTest, ADifferenceThatCannotBeToldHasNoColour)
{
    for (const double comparison : {4.0, null}) {
        table.clear();
        for (const double value : {5.0, comparison, 1.0, 2.0})
            table.addMeasure("m", {value});
        table.serve(chart);
        layOut({600, 400});
        ASSERT_EQ(chart.obtainStatus(0), Good) << "by the bounds";
        for (const KXFigureChart::PlacedText& text : chart.getPlacedTexts())
            if (text.line == KXKpiChart::Difference) {
                EXPECT_EQ(text.property.textColor == chart.getGoodColor(), !std::isnan(comparison));
            }
    }
}

TEST_F(KXKpiChartTest, ManyPanelsScrollAndOnlyThoseInSightExist)
{
    show(std::vector<double>(1000, 5), std::vector<double>(1000, 4));
    EXPECT_TRUE(chart.getScrollView()->getVisible());
    EXPECT_LT(chart.getLaidOutItems().size(), 60);
    EXPECT_TRUE(chart.hasItem({0, 999, 0}));
    chart.showItem({0, 999, 0});
    chart.layout();
    EXPECT_EQ(chart.getLaidOutItems().back().item.group, 999);
    EXPECT_LE(chart.obtainItemRect({0, 999, 0}).getBottom(), 400);
    const auto below = chart.obtainItemBeside(KXChartItem{0, 3, 0}, KXChartItemStep::Down);
    EXPECT_EQ(below, (KXChartItem{0, 3 + chart.getShownColumnCount(), 0}));
    show({5, 6, 7, 8}, {4, 4, 4, 4});
    EXPECT_FALSE(chart.getScrollView()->getVisible());
    EXPECT_EQ(chart.getShownColumnCount(), 2);
}

TEST_F(KXKpiChartTest, APanelIsNamedByEachOfItsMeasures)
{
    show({5, 6}, {4, null});
    KXChartDataPath path;
    path.valueIndexPath = {1, 1};
    EXPECT_EQ(chart.findItems(path), (std::vector<KXChartItem>{{0, 1, 0}}));
    EXPECT_EQ(chart.obtainItemHint({0, 0, 0}).title, "n0");
    show({5}, {4});
    path.valueIndexPath = {1, 0};
    EXPECT_EQ(chart.findItems(path), (std::vector<KXChartItem>{{0, 0, 0}}));
    EXPECT_EQ(chart.obtainItems().size(), 1) << "the measures are one panel";
}

} // namespace
