#include "kx_accessible_chart.h"

#include "kx_axis_chart_test_provider.h"
#include "kx_axis_property.h"
#include "kx_axis_tick_label_view.h"
#include "kx_bar_chart.h"
#include "kx_chart_diagnostic.h"
#include "kx_chart_property.h"
#include "kx_legend.h"
#include "kx_line_chart.h"
#include "kx_load_chart.h"
#include "kx_sentence.h"
#include "kx_table_chart.h"
#include "kx_table_data_provider.h"
#include "ux/ux_accessible_object.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_label.h"
#include "ux/ux_localize.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

/** @return the node that a way of child indexes leads to */
std::unique_ptr<UXAccessibleNode> find(UXObject& object, const std::vector<std::uint64_t>& way)
{
    std::unique_ptr<UXAccessibleNode> node = uxCreateAccessibleNode(object);
    for (const std::uint64_t index : way)
        node = node->createChild(index);
    return node;
}

TEST(KXAccessibleChart, SaysTitleAxesSeriesAndLegend)
{
    const UXFixedMeasurer measurer;
    UXDiagram diagram;
    KXBarChart chart;
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {4, KXAxisChartTestProvider::null, 1}};
    chart.getChartProperty()->updateTitleValue("Cars");
    diagram.addChild(&chart);
    kxLoad(chart, provider, {0, 0, 480, 320});
    const std::string tree = uxWriteAccessibleTree(*uxCreateAccessibleNode(chart));
    std::string places; // of which the layout is the judge
    for (std::size_t i = 0, end = 0; end != std::string::npos; i = end + 1) {
        end = tree.find('\n', i);
        const std::string line = tree.substr(i, end - i);
        places += line.substr(0, line.rfind(" at ")) + '\n';
    }
    EXPECT_EQ(places,
              "figure \"Cars\" : \"Bar chart: Cars. Horizontal axis, Categories: 3 members, from c0 to c2. "
              "Vertical axis: from 0 to 5. 2 series. s0: lowest 1 (c0), highest 3 (c2). "
              "s1: lowest 1 (c2), highest 4 (c0).\"\n"
              "  heading \"Cars\"\n"
              "  group \"Horizontal axis, Categories\" = \"from c0 to c2\"\n"
              "  group \"Vertical axis\" = \"from 0 to 5\"\n"
              "  group \"s0\"\n"
              "    img \"c0, s0: 1, s1: 4\" (focus, press)\n"
              "    img \"c1, s0: 2\" (focus, press)\n"
              "    img \"c2, s0: 3, s1: 1\" (focus, press)\n"
              "  group \"s1\"\n"
              "    img \"c0, s1: 4, s0: 1\" (focus, press)\n"
              "    img \"c2, s1: 1, s0: 3\" (focus, press)\n"
              "  group \"Legend\"\n"
              "    checkbox \"s0\" [checked] (focus, press)\n"
              "    checkbox \"s1\" [checked] (focus, press)\n"
              "\n");
}

TEST(KXAccessibleChart, MarksAreANumberUntilTheyAreAskedFor)
{
    const UXFixedMeasurer measurer;
    KXLineChart chart;
    KXAxisChartTestProvider provider;
    constexpr std::uint64_t count = 200'000;
    provider.categoryCount = count;
    provider.values = {std::vector<double>(count, 1)};
    kxLoad(chart, provider, {0, 0, 480, 320});
    provider.askedTexts.clear();
    const std::unique_ptr<UXAccessibleNode> series = find(chart, {2});
    ASSERT_EQ(series->obtainChildCount(), count);
    EXPECT_EQ(series->createChild(count - 1)->obtainInfo().name, "c199999, s0: 1");
    EXPECT_LT(provider.askedTexts.size(), 1000u);
}

TEST(KXAccessibleChart, ATableHasRowsOfCells)
{
    const UXFixedMeasurer measurer;
    KXTableChart chart;
    KXTableDataProvider provider;
    provider.addDimension("Place", std::vector<std::string>{"here", "there"});
    provider.addMeasure("Cars", {1, 2});
    kxLoad(chart, provider, {0, 0, 480, 320});
    const std::unique_ptr<UXAccessibleNode> table = find(chart, {0});
    EXPECT_EQ(table->obtainInfo().role, UXAccessibleRole::Table);
    const UXAccessibleRole roles[][2] = {{UXAccessibleRole::ColumnHeader, UXAccessibleRole::ColumnHeader},
                                         {UXAccessibleRole::RowHeader, UXAccessibleRole::Cell}};
    for (std::uint64_t row = 0; row < 2; ++row)
        for (std::uint64_t place = 0; place < row + 1; ++place)
            EXPECT_EQ(find(chart, {0, row, place})->obtainInfo().role, roles[row][place]);
    EXPECT_NE(find(chart, {0, 2, 1})->obtainInfo().name.find('2'), std::string::npos);
}

TEST(KXAccessibleChart, ALegendIsSwitchedAndTheControlHearsOfIt)
{
    struct Control : UXControl {
        int childrenChanged = 0;
        void notifyAccessibleChange(UXObject*, UXAccessibleChange change) override
        {
            childrenChanged += change == UXAccessibleChange::Children;
        }
    };
    const UXFixedMeasurer measurer;
    UXContext context;
    UXDiagram diagram(&context);
    Control control;
    context.addControl(&control);
    context.setActiveDiagram(&control, &diagram);
    KXBarChart chart;
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {4, 5, 6}};
    chart.getLegend()->enableCellClick();
    diagram.addChild(&chart);
    kxLoad(chart, provider, {0, 0, 480, 320});
    control.childrenChanged = 0;
    const std::unique_ptr<UXAccessibleNode> cell = uxCreateAccessibleNode(*chart.getLegend())->createChild(1);
    EXPECT_EQ(cell->obtainInfo().checked, UXAccessibleToggle::On);
    EXPECT_TRUE(cell->perform(UXAccessibleAction::Press));
    EXPECT_EQ(cell->obtainInfo().checked, UXAccessibleToggle::Off);
    EXPECT_FALSE(chart.isSeriesShown(1));
    EXPECT_EQ(control.childrenChanged, 1);
    EXPECT_FALSE(cell->perform(UXAccessibleAction::Increase));
}

TEST(KXChartSummary, TellsHowValuesRun)
{
    struct Case {
        std::vector<double> values;
        const char* told;
    };
    const Case cases[] = {
        {{1, 2, 3}, "Values: lowest 1 (c0), highest 3 (c2). Rises from 1 (c0) to 3 (c2)."},
        {{9, 2, 1}, "Values: lowest 1 (c2), highest 9 (c0). Falls from 9 (c0) to 1 (c2)."},
        {{1, 5, 1}, "Values: lowest 1 (c0), highest 5 (c1). Goes up and down, from 1 (c0) to 1 (c2)."},
        {{2, 2, 2}, "Values: always 2."},
        {{KXAxisChartTestProvider::null, 5, KXAxisChartTestProvider::null}, "Values: 5 (c1)."},
        {{KXAxisChartTestProvider::null}, "No data."},
    };
    const UXFixedMeasurer measurer;
    for (const Case& c : cases) {
        KXLineChart chart;
        KXAxisChartTestProvider provider;
        provider.categoryType = KXChartDataType::Float;
        provider.categoryCount = c.values.size();
        provider.values = {c.values};
        provider.categoryText = [](std::uint64_t category) { return "c" + std::to_string(category); };
        kxLoad(chart, provider, {0, 0, 480, 320});
        const std::string summary = chart.summary();
        EXPECT_TRUE(summary.ends_with(c.told)) << summary;
    }
}

TEST(KXChartDiagnostics, TellWhatIsNotSeenInFull)
{
    using enum KXChartDiagnosticKind;
    struct Case {
        const char* name;
        UXRect rect;
        const char* title;
        std::vector<std::pair<KXChartDiagnosticKind, std::string>> told;
    };
    const std::string longTitle = "A title of which a narrow chart shows no more than a part";
    const Case cases[] = {
        {"all is seen", {0, 0, 480, 320}, "Cars", {}},
        {"a long title", {0, 0, 320, 320}, longTitle.c_str(), {{ShortenedText, longTitle}}},
        {"too narrow for a legend", {0, 0, 280, 200}, "Cars", {{LeftOutText, "Legend"}}},
    };
    const UXFixedMeasurer measurer;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXBarChart chart;
        KXAxisChartTestProvider provider;
        provider.values = {{1, 2, 3}, {4, 5, 6}};
        chart.getChartProperty()->updateTitleValue(c.title);
        chart.getChartProperty()->updateLegendPosition(UXPosition::Right);
        kxLoad(chart, provider, c.rect);
        std::vector<std::pair<KXChartDiagnosticKind, std::string>> told;
        for (const KXChartDiagnostic& diagnostic : chart.diagnostics()) {
            told.emplace_back(diagnostic.kind, diagnostic.text);
            EXPECT_FALSE(diagnostic.reason.empty());
        }
        EXPECT_EQ(told, c.told);
    }
}

/** A localizer may end the chart, which is not looked at after the first question. */
TEST(KXChartDiagnostics, AskForWordsWhenAllIsTold)
{
    const UXFixedMeasurer measurer;
    KXAxisChartTestProvider provider;
    provider.values = {{1, 2, 3}, {4, 5, 6}};
    auto chart = std::make_unique<KXBarChart>();
    chart->getChartProperty()->updateTitleValue("A title of which a narrow chart shows no more than a part");
    chart->getChartProperty()->updateLegendPosition(UXPosition::Right);
    kxLoad(*chart, provider, {0, 0, 280, 200});
    const std::size_t count = chart->diagnostics().size();
    uxSetLocalizer([&](const std::string& text) {
        chart.reset();
        return "<" + text + ">";
    });
    const std::vector<KXChartDiagnostic> told = chart->diagnostics();
    uxSetLocalizer({});
    EXPECT_FALSE(chart);
    ASSERT_EQ(told.size(), count);
    EXPECT_EQ(told[0].reason, "<there is no room for it>");
    EXPECT_EQ(told[1].text, "<Legend>");
}

TEST(KXChartDiagnostics, CountLabelsOfTicksAndValuesBeyondTheAxis)
{
    const UXFixedMeasurer measurer;
    KXBarChart chart;
    KXAxisChartTestProvider provider;
    provider.categoryCount = 60;
    provider.values = {std::vector<double>(60, 5)};
    provider.values[0][7] = 50;
    chart.getYAxisProperty()->updateAutoAxisRange(false);
    chart.getYAxisProperty()->updateCustomMaxAxisValue(10);
    kxLoad(chart, provider, {0, 0, 300, 320});
    std::uint64_t labels = 0, clipped = 0, seen = 0;
    for (const KXChartDiagnostic& diagnostic : chart.diagnostics()) {
        labels += diagnostic.kind == KXChartDiagnosticKind::LeftOutText ? diagnostic.count : 0;
        clipped += diagnostic.kind == KXChartDiagnosticKind::ClippedValue ? diagnostic.count : 0;
    }
    for (UXObject* part : chart.getPlot()->getChildren())
        if (const auto* view = dynamic_cast<KXAxisTickLabelView*>(part); view && view->getVisible())
            for (const UXLabel* label : view->obtainLabels())
                seen += label->getVisible() && label->getText().starts_with('c');
    EXPECT_EQ(clipped, 1u);
    EXPECT_GT(labels, 0u);
    const auto [first, end] = chart.obtainVisibleCategories();
    EXPECT_EQ(seen + labels, end - first);
}

TEST(KXSentence, KeepsThePercentSignsOfValues)
{
    EXPECT_EQ(kxWriteSentence("%2 of %1, 5 % and %3", {"%2", "1"}), "1 of %2, 5 % and %3");
}

} // namespace
