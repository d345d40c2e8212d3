#include "kx_value_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_load_chart.h"
#include "kx_test_provider.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_event.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_hint.h"
#include "ux/ux_hint_frame.h"
#include "ux/ux_recording_paint_config.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

namespace {

/** A chart of 200 x 120 without a title: its plot area is 198 x 118 at (1, 1). */
class KXValueChartTest : public testing::Test {
protected:
    KXValueChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.setRect(uxMakeRect(0, 0, 200, 120));
        chart.setDataProvider(&provider);
    }
    KXChartLabel& label() { return *chart.getValueLabel(); }

    UXFixedMeasurer measurer;
    KXTestProvider provider;
    KXValueChart chart;
};

TEST_F(KXValueChartTest, AsksWhatItNeedsAndNoMore)
{
    using enum KXChartDataType;
    const std::string asked = "begin isEmpty count ", typed = asked + "type(0) aggregate(0) isNull(0,0) ";
    const std::tuple<const char*, bool, std::uint64_t, KXChartDataType, bool, bool, std::string> cases[] = {
        {"no data", true, 1, Float, false, false, "begin isEmpty end "},
        {"two values", false, 2, Float, false, false, asked + "end "},
        {"a number", false, 1, Integer, false, true, typed + "number(0,0) end "},
        {"a null number", false, 1, Float, true, false, typed + "number(0,0) text(0,0) end "},
        {"a date", false, 1, Date, false, false, typed + "text(0,0) end "},
    };
    for (const auto& [name, empty, count, type, isNull, prepared, expected] : cases) {
        SCOPED_TRACE(name);
        provider.calls.clear();
        provider.empty = empty;
        provider.valueCount = count;
        provider.dataType = type;
        provider.isNull = isNull;
        chart.prepareData();
        std::string calls;
        for (const std::string& call : provider.calls)
            calls += call + " ";
        EXPECT_EQ(calls, expected);
        EXPECT_EQ(chart.preparedData(), prepared);
        EXPECT_FALSE(chart.reloadedData());
    }
}

TEST_F(KXValueChartTest, WritesTheValueByItsType)
{
    struct Case {
        const char* name;
        KXChartDataType type;
        bool isNull;
        double number;
        std::string text, expected;
        UXColor color;
    };
    const UXColor ordinary(64, 64, 64), negative(255, 110, 110);
    const Case cases[] = {
        {"grouped", KXChartDataType::Integer, false, 1234567, "", "1,234,567", ordinary},
        {"negative", KXChartDataType::Float, false, -3, "", "-3", negative},
        {"zero is not negative", KXChartDataType::Float, false, 0, "", "0", ordinary},
        {"null number", KXChartDataType::Integer, true, -5, "no value", "no value", negative},
        {"text", KXChartDataType::String, false, -1, "Boeing", "Boeing", ordinary},
        {"date", KXChartDataType::Date, false, 0, "2024-03-05", "2024-03-05", ordinary},
        {"null date", KXChartDataType::Date, true, 0, "never", "never", ordinary},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        provider.dataType = c.type;
        provider.isNull = c.isNull;
        provider.number = c.number;
        provider.text = c.text;
        kxLoad(chart);
        EXPECT_TRUE(label().getVisible());
        EXPECT_EQ(label().getText(), c.expected);
        EXPECT_EQ(label().getTextProperty().textColor, c.color);
        EXPECT_EQ(label().getTextProperty().align, UXTextAlign::Center);
    }
    provider.valueCount = 2;
    kxLoad(chart);
    EXPECT_FALSE(label().getVisible());
}

TEST_F(KXValueChartTest, ShrinksUntilTheTextIsSmallerThanThePlotArea)
{
    // A text of n letters is n x size / 2 wide; the plot area is 198 wide and 118 high.
    const std::tuple<const char*, int, std::size_t, int> cases[] = {
        {"fits at once", 36, 4, 36},
        {"touching is not fitting", 36, 11, 35},
        {"shrinks", 36, 20, 19},
        {"never below nine", 36, 1000, 9},
        {"small stays as it is", 8, 1000, 8},
        {"too high", 118, 1, 117},
        {"absurd sizes end", 2147483647, 1, 117},
        {"negative size", -5, 3, -5},
    };
    provider.dataType = KXChartDataType::String;
    for (const auto& [name, wanted, letters, expected] : cases) {
        SCOPED_TRACE(name);
        provider.text = std::string(letters, 'x');
        chart.setFontSize(wanted);
        kxLoad(chart);
        EXPECT_EQ(label().getTextProperty().font.size, expected);
        EXPECT_EQ(uxPaintToText(chart).find("drawText 0,0,199,") != std::string::npos, letters == 1000)
            << "what is too wide ends with an ellipsis at the chart's edge";
        EXPECT_EQ(label().getRect().width > 198, letters == 1000) << "and the label is as wide as all of it";
    }

    provider.text = std::string(30, 'x'); // 135 wide at the least size
    chart.setFontSize(36);
    chart.getChartProperty()->updateShowTitle(true);
    chart.getChartProperty()->updateTitleValue("a title beside");
    chart.getChartProperty()->updateTitlePosition(UXPosition::Right);
    kxLoad(chart);
    EXPECT_GT(label().getRect().width, chart.getTitle()->getRect().x - 15);
    EXPECT_NE(uxPaintToText(chart).find('"' + provider.text + '"'), std::string::npos)
        << "a value may reach over the plot area";
    chart.getChartProperty()->updateShowTitle(false);

    provider.text.clear();
    chart.setFontSize(2147483647);
    chart.setRect(uxMakeRect(0, 0, 2, 2)); // no plot area at all, in which not even an empty text fits
    measurer.askedCount = 0;
    kxLoad(chart);
    EXPECT_EQ(label().getTextProperty().font.size, 9);
    EXPECT_LT(measurer.askedCount, 100);
    provider.text = "x";
    kxLoad(chart);
    EXPECT_TRUE(label().getVisible());
    EXPECT_EQ(uxPaintToText(chart).find("drawText"), std::string::npos) << "half a line is none";
}

TEST_F(KXValueChartTest, StandsWhereItIsAligned)
{
    provider.dataType = KXChartDataType::String;
    provider.text = "abc"; // 3 x 35 / 2 = 52.5, rounded up to 53; 198 - 53 = 145 is left over
    chart.setFontSize(35);
    const std::pair<UXTextAlign, UXRect> cases[] = {
        {UXTextAlign::Left, {1, 1, 53, 35}},
        {UXTextAlign::Center, {1 + 72, 1, 53, 35}},
        {UXTextAlign::Right, {199 - 53, 1, 53, 35}},
    };
    for (const auto& [align, expected] : cases) {
        chart.setMainLabelAlign(align);
        kxLoad(chart);
        EXPECT_EQ(label().getRect(), expected);
    }
}

TEST_F(KXValueChartTest, PropertyChangesTakeNoDataAgain)
{
    provider.number = -1234.5;
    kxLoad(chart);
    provider.calls.clear();
    chart.getDataFormat()->updateDecimals(1);
    chart.layout();
    EXPECT_EQ(label().getText(), "-1,234.5");
    measurer.askedCount = 0;
    chart.setNegativeFontColor(UXColor(1, 2, 3));
    EXPECT_EQ(label().getTextProperty().textColor, UXColor(1, 2, 3));
    EXPECT_EQ(measurer.askedCount, 0) << "a colour needs no measuring";
    std::erase(provider.calls, "shouldRightClick");
    EXPECT_EQ(provider.calls, std::vector<std::string>());
}

TEST_F(KXValueChartTest, AClickOnTheValueRunsTheHostsAction)
{
    int clicks = 0;
    provider.leftClickAction = [&] { ++clicks; };
    kxLoad(chart);
    UXEvent event(UXEventType::LeftClick);
    EXPECT_TRUE(label().triggerEventHandler(event));
    EXPECT_EQ(clicks, 0) << "the action waits for the end of the dispatch";
    event.runPostedActions();
    EXPECT_EQ(clicks, 1);
    ASSERT_EQ(provider.paths.size(), 2u); // the menu's question and the click
    EXPECT_EQ(provider.paths.back().identifier, "ValueLabel");
    EXPECT_EQ(provider.paths.back().valueIndexPath, (KXIndexPath{0, 0}));

    kxLoad(chart); // registers again; one click stays one action
    UXEvent second(UXEventType::LeftClick);
    label().triggerEventHandler(second);
    second.runPostedActions();
    EXPECT_EQ(clicks, 2);

    label().registerLeftClickActionTriggerCondition([] { return false; });
    label().triggerEventHandler(UXEvent(UXEventType::LeftClick));
    EXPECT_EQ(provider.count("leftClickAction"), 2) << "the host's own condition";
    label().registerLeftClickActionTriggerCondition({});
    chart.getChartProperty()->setEnableInteraction(false);
    const std::size_t asked = provider.calls.size();
    label().triggerEventHandler(UXEvent(UXEventType::LeftClick));
    EXPECT_EQ(provider.calls.size(), asked) << "a chart without interaction asks nothing";
}

TEST_F(KXValueChartTest, SavesWhatTheTitleHasBesideItsProperty)
{
    chart.getChartProperty()->updateTitleValueWrap(true);
    chart.getTitle()->setDefaultText("untitled");
    KXValueChart read;
    EXPECT_TRUE(read.deserialize(chart.serialize()));
    EXPECT_TRUE(read.getChartProperty()->getTitleValueWrap());
    EXPECT_EQ(read.getTitle()->getDefaultText(), "untitled");

    UXTextProperty title = chart.getChartProperty()->getTitleProperty();
    title.lineMode = 0; // as good as 2, and kept
    chart.getChartProperty()->setTitleProperty(title);
    read.deserialize(chart.serialize());
    EXPECT_EQ(read.serialize(), chart.serialize());
}

TEST_F(KXValueChartTest, TheHoveredValueTellsMoreOnTheControl)
{
    provider.hint = [](const KXIndexPath&) { return KXChartDataProviderHintData{"Sales", "1,234"}; };
    UXContext context;
    UXDiagram diagram(&context);
    UXGlobalControlSpaceEventDiagram screen;
    UXControl control;
    diagram.registerGlobalEventDiagram(&screen);
    diagram.setRect(uxMakeRect(0, 0, 400, 300));
    diagram.addChild(&chart);
    chart.setRect(uxMakeRect(0, 100, 200, 120));
    context.setActiveDiagram(&control, &diagram);
    control.setControlRect({0, 0, 400, 300});
    kxLoad(chart);
    const UXRect value = label().translateRectToParent(label().getBoundingRect(), &diagram);
    control.mouseMove({value.x + 2, value.y + 2}, UXEvent());
    ASSERT_EQ(screen.getVisibleHints().size(), 1U);
    EXPECT_EQ(screen.getVisibleHints()[0]->getFrame()->getHintInfo().title, "Sales");
    control.mouseMove({300, 20}, UXEvent());
    EXPECT_TRUE(screen.getVisibleHints().empty());
}

} // namespace
