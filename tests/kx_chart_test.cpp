#include "kx_chart.h"

#include "kx_bar_chart.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_gauge_chart.h"
#include "kx_legend.h"
#include "kx_load_chart.h"
#include "kx_test_chart.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux/ux_painter.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <tuple>

namespace {

struct LayoutCase {
    const char* name;
    int width, height;
    const char* title; // 18 high, 9 wide a letter
    UXPosition titlePosition, titleAlign;
    const char* legendLabel; // one cell; 23 + 6.5 a letter wide; the row is 15.6 + 13 + 12 high
    UXPosition legendPosition;
    std::string parts; // title | legend | plot area, "-" for one that is left out
    int titleSize = 18;
};

std::string write(const UXRect& rect)
{
    if (rect == UXRect(1, 1, 0, 0))
        return "-";
    std::ostringstream text;
    text << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
    return text.str();
}

TEST(KXChart, DividesItsContentBetweenTitleLegendAndPlot)
{
    constexpr auto Top = UXPosition::Top, Bottom = UXPosition::Bottom, Left = UXPosition::Left,
                   Right = UXPosition::Right, Center = UXPosition::Center;
    const LayoutCase cases[] = {
        {"nothing but the plot", 402, 302, "", Top, Left, "", Top, "- | - | 1,1 400x300"},
        {"title at the top", 402, 302, "title", Top, Left, "", Top, "1,1 400x18 | - | 1,34 400x267"},
        {"title at the bottom", 402, 302, "title", Bottom, Left, "", Top, "1,283 400x18 | - | 1,1 400x267"},
        {"title at the left, centred", 402, 302, "title", Left, Center, "", Top,
         "1,142 45x18 | - | 61,1 340x300"},
        {"title at the right, at the bottom", 402, 302, "title", Right, Bottom, "", Top,
         "356,283 45x18 | - | 1,1 340x300"},
        {"a title at the side takes less than half", 102, 302, "a long title", Left, Top, "", Top,
         "1,1 35x18 | - | 51,1 50x300"},
        {"no room for a title at the side", 22, 302, "title", Left, Top, "", Top,
         "1,1 0x18 | - | 1,1 20x300"},
        {"a title elsewhere leaves the plot alone", 402, 302, "title", Center, Left, "", Top,
         "1,1 45x18 | - | 1,1 400x300"},
        {"legend at the top below the title", 402, 302, "title", Top, Left, "cell", Top,
         "1,1 400x18 | 1,34 400x40 | 1,89 400x212"},
        {"legend at the bottom", 402, 302, "", Top, Left, "cell", Bottom, "- | 1,261 400x40 | 1,1 400x245"},
        {"a narrow legend gets its least width", 402, 302, "", Top, Left, "c", Left,
         "- | 1,1 100x300 | 116,1 285x300"},
        {"a wide one its greatest", 402, 302, "", Top, Left, "a label of forty letters, or a few more", Right,
         "- | 201,1 200x300 | 1,1 185x300"},
        {"a legend beside a narrow plot is left out", 250, 302, "", Top, Left, "cell", Right,
         "- | - | 1,1 248x300"},
        {"the title counts against the legend's room", 402, 134, "title", Top, Left, "cell", Top,
         "1,1 400x18 | - | 1,34 400x99"},
        {"no size at all", 0, 0, "title", Top, Left, "cell", Top, "1,1 0x18 | - | 1,34 0x0"},
        {"an absurd title above", 402, 302, "title", Top, Left, "cell", Top,
         "1,1 400x2147483647 | - | 1,2147483647 400x0", INT_MAX},
        {"an absurd title beside", 402, 302, "title", Left, Left, "cell", Top,
         "1,1 185x2147483647 | 201,1 200x40 | 201,56 200x245", INT_MAX},
    };
    const UXFixedMeasurer measurer;
    for (const LayoutCase& c : cases) {
        SCOPED_TRACE(c.name);
        KXTestChart chart;
        KXChartProperty& property = *chart.getChartProperty();
        UXTextProperty text = property.getTitleProperty();
        text.font.size = c.titleSize;
        property.setTitleProperty(text);
        property.setTitleValue(c.title);
        property.setTitlePosition(c.titlePosition);
        property.setTitleVerticalAlign(c.titleAlign);
        property.setLegendPosition(c.legendPosition);
        if (*c.legendLabel)
            chart.setLabels({c.legendLabel});
        chart.setRect(uxMakeRect(30, 40, c.width, c.height));
        chart.layout();
        EXPECT_EQ(write(chart.getTitle()->getRect()) + " | " + write(chart.getLegend()->getRect()) + " | " +
                      write(chart.plotArea),
                  c.parts);
    }
}

TEST(KXChart, ATitleEndsWithAWholeLineInsideTheChart)
{
    KXTestChart chart;
    KXChartProperty& property = *chart.getChartProperty();
    property.updateTitleValue("one two three four five six");
    property.updateTitleValueWrap(true);
    const std::string whole = "\"one two three four five six\"", cut = "\xE2\x80\xA6\"";
    const std::tuple<const char*, int, UXPosition, std::string> cases[] = {
        {"room for all lines", 200, UXPosition::Bottom, whole},
        {"for some at the top", 50, UXPosition::Top, cut},
        {"for some at the bottom", 50, UXPosition::Bottom, cut},
        {"for none", 10, UXPosition::Top, ""},
        {"for all again", 200, UXPosition::Top, whole},
    };
    for (const auto& [name, height, position, drawn] : cases) {
        SCOPED_TRACE(name);
        property.updateTitlePosition(position);
        chart.setRect(uxMakeRect(0, 0, 100, height));
        chart.layout();
        const std::string text = uxPaintToText(chart);
        EXPECT_EQ(text.find("drawText") != std::string::npos, !drawn.empty());
        EXPECT_NE(text.find(drawn), std::string::npos) << text;
        EXPECT_EQ(text.find("drawText 0,-"), std::string::npos) << "inside";
        EXPECT_EQ(chart.getTitle()->getText(), "one two three four five six");
    }
}

TEST(KXChart, AnAbsurdPaddingLeavesNoRoom)
{
    constexpr int most = INT_MAX, least = INT_MIN;
    KXTestProvider provider;
    for (const UXPadding& padding : {UXPadding(most, most, most, most), UXPadding(least, least, least, least),
                                     UXPadding(most, 0, least, 1), UXPadding(0, least, 1, most)})
        for (const UXPosition position :
             {UXPosition::Top, UXPosition::Bottom, UXPosition::Left, UXPosition::Right})
            for (const bool isGauge : {false, true}) {
                KXGaugeChart gauge;
                KXValueChart value;
                KXChart& chart = isGauge ? static_cast<KXChart&>(gauge) : value;
                chart.getChartProperty()->setTitleValue("title");
                chart.getChartProperty()->setTitlePosition(position);
                chart.getChartProperty()->setTitleVerticalAlign(UXPosition::Bottom);
                chart.setPadding(padding);
                isGauge ? kxLoad(gauge, provider, {5, 5, 300, 200})
                        : kxLoad(value, provider, {5, 5, 300, 200});
                uxPaintToText(chart);
                EXPECT_GE(chart.getTitle()->getRect().width, 0);
                EXPECT_GE(chart.getTitle()->getRect().height, 0);
            }
}

TEST(KXChart, APropertyChangeReachesThePartThatShowsIt)
{
    const UXFixedMeasurer measurer;
    KXTestChart chart;
    chart.setRect(uxMakeRect(0, 0, 402, 302));
    chart.layout();
    KXChartProperty& property = *chart.getChartProperty();
    property.updateTitleValue("title");
    property.updateTitleHorizontalAlign(UXPosition::Center);
    property.updateBackgroundColor(UXColor(1, 2, 3));
    property.updateShowBorder(true);
    property.updateLegendPosition(UXPosition::Right);
    property.updateLegendLabelColor(UXColor(4, 5, 6));
    chart.layout();
    EXPECT_EQ(chart.plotArea, UXRect(1, 34, 400, 267));
    EXPECT_EQ(chart.getTitle()->getTextProperty().align, UXTextAlign::Center);
    EXPECT_EQ(chart.getBackgroundColor(), UXColor(1, 2, 3));
    EXPECT_TRUE(chart.getShowBorder());
    EXPECT_EQ(chart.getLegend()->getArrangement(), UXArrangement::Column);
    EXPECT_EQ(chart.getLegend()->getTextProperty().textColor, UXColor(4, 5, 6));

    chart.plotArea = UXRect();
    property.updateTitleColor(UXColor(7, 8, 9));
    chart.layout();
    EXPECT_EQ(chart.plotArea, UXRect()) << "a colour needs no layout";
    EXPECT_EQ(chart.getTitle()->getTextProperty().textColor, UXColor(7, 8, 9));
    property.updateShowTitle(false);
    chart.layout();
    EXPECT_EQ(chart.plotArea, UXRect(1, 1, 400, 300));
}

TEST(KXChart, TheTitleTakesClicksOnlyWhereTheyAreEnabled)
{
    KXTestChart chart;
    KXTestProvider provider;
    int clicks = 0;
    provider.leftClickAction = [&] { ++clicks; };
    chart.setDataProvider(&provider);
    chart.init();
    const UXEvent event(UXEventType::LeftClick);
    EXPECT_FALSE(chart.getTitle()->triggerEventHandler(event));
    EXPECT_TRUE(provider.calls.empty());
    chart.getChartProperty()->updateEnableTitleClick(true);
    EXPECT_TRUE(chart.getTitle()->triggerEventHandler(event));
    event.runPostedActions();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(provider.paths.back().identifier, "Title");
}

TEST(KXChart, EveryKeyOfItsDocumentIsReachedByKey)
{
    KXTestChart chart;
    UXPropertyAccessor accessor(&chart);
    KXChartProperty& property = *chart.getChartProperty();
    std::vector<std::string> called;
    property.registerUpdatedEvents([&](const std::string& key) { called.push_back(key); });
    std::string text;
    int size = 0;
    bool wraps = false;
    EXPECT_TRUE(accessor.updateValue("m_titleValueWrap", true) && property.getTitleValueWrap());
    EXPECT_TRUE(accessor.updateValue("m_titleFontSize", 31));
    EXPECT_EQ(property.getTitleProperty().font.size, 31);
    EXPECT_EQ(called, std::vector<std::string>(2, "m_titleProperty"));
    EXPECT_TRUE(accessor.updateValue("m_titleDefaultValue", "default"));
    EXPECT_EQ(chart.getTitle()->getDefaultText(), "default");
    EXPECT_TRUE(accessor.obtainValue("m_titleValueWrap", wraps) && wraps);
    EXPECT_TRUE(accessor.obtainValue("m_titleFontSize", size) && size == 31);
    EXPECT_TRUE(accessor.obtainValue("m_titleDefaultValue", text) && text == "default");
    EXPECT_FALSE(accessor.updateValue("m_titleFontSize", "31")) << "is a number";

    KXValueChart value;
    UXJsonObject* label = nullptr;
    EXPECT_TRUE(UXPropertyAccessor(&value).obtainObject("m_valueLabel", &label));
    EXPECT_EQ(label, value.getValueLabel());
    KXBarChart bars;
    EXPECT_TRUE(UXPropertyAccessor(&bars).updateEnumString("m_orientation", "Horizontal"));
    EXPECT_FALSE(bars.isVertical());
}

TEST(KXChart, TheToolboxShowsOnlyUnderThePointerOfAHostThatWantsIt)
{
    KXTestChart chart;
    KXTestProvider provider;
    chart.setRect(uxMakeRect(0, 0, 202, 102));
    chart.layout();
    const KXTestInput input{chart};
    KXChartToolbox& toolbox = *chart.getToolbox();
    EXPECT_EQ(toolbox.getRect(), UXRect(2, 2, 198, 25)) << "hidden, it has its place all the same";
    input.move({100, 60});
    EXPECT_FALSE(toolbox.getVisible()) << "no provider";
    chart.setDataProvider(&provider);
    input.move({100, 60});
    EXPECT_FALSE(toolbox.getVisible());
    provider.wantsToolbox = true;
    provider.calls.clear();
    input.move({100, 60});
    input.move({100, 60});
    EXPECT_TRUE(toolbox.getVisible());
    EXPECT_EQ(provider.calls,
              (std::vector<std::string>{"shouldShowToolbox", "toolboxContext", "shouldShowToolbox"}));
    input.leave();
    EXPECT_FALSE(toolbox.getVisible());
}

TEST(KXChart, PaintsGroundAndBorderThenItsChildrenAndTheToolboxLast)
{
    /** A child that says in the recording that it was painted. */
    class Mark : public UXObject {
    public:
        Mark(UXObject& parent, double place, const UXRect& rect) : m_place(place)
        {
            setRect(rect);
            parent.addChild(this);
        }
        std::string customSerializeTypeID() override { return "Mark"; }
        void paint(UXPaintConfig* config, UXRect) override
        {
            UXPainter* painter = uxCreatePainter(config);
            painter->setLineWidth(m_place);
            uxDestroyPainter(painter);
        }

    private:
        double m_place;
    };
    KXTestChart chart;
    chart.setRect(uxMakeRect(0, 0, 100, 50));
    chart.layout();
    Mark hidden(chart, 12, {0, 0, 100, 50}), elsewhere(chart, 13, {500, 0, 10, 10});
    Mark first(chart, 11, {0, 0, 100, 50}), inToolbox(*chart.getToolbox(), 14, {0, 0, 100, 25});
    hidden.setVisible(false);
    chart.getToolbox()->setVisible(true);

    std::string text = uxPaintToText(chart);
    for (const char* absent : {"fill", "stroke", "setLineWidth 12", "setLineWidth 13"})
        EXPECT_EQ(text.find(absent), std::string::npos) << absent << "\n" << text;
    chart.setBackgroundColor(UXColor(255, 255, 255, 0.5));
    chart.setShowBorder(true);
    text = uxPaintToText(chart);
    std::size_t place = 0;
    for (const char* next : {"fill", "stroke", "setLineWidth 11", "setLineWidth 14"}) {
        place = text.find(next, place);
        ASSERT_NE(place, std::string::npos) << next << " is missing or out of order\n" << text;
    }
}

TEST(KXLegend, MeasuresCellsOncePerChange)
{
    UXFixedMeasurer measurer;
    KXTestChart chart;
    KXLegend& legend = *chart.getLegend();
    chart.setLabels({"four", std::string(50, 'x'), "no"}); // 23 + 6.5 a letter
    chart.hidden = {1};
    EXPECT_EQ(legend.obtainLegendWidth(), 23 + 26 + 12 + 2) << "the widest shown cell, bar and margins";
    EXPECT_EQ(legend.obtainLegendHeight(), 1.2 * 13 + 13 + 12);
    const int asked = measurer.askedCount;
    legend.obtainLegendWidth();
    EXPECT_EQ(measurer.askedCount, asked);
    chart.hidden.clear();
    legend.markCellVisibleUpdated();
    EXPECT_EQ(legend.obtainLegendWidth(), 200 + 12 + 2) << "cut at the greatest cell width";
    legend.setLabelColor(UXColor(1, 1, 1));
    legend.obtainLegendWidth();
    EXPECT_EQ(measurer.askedCount, asked) << "neither visibility nor colour measures";
    legend.setDelegate(nullptr);
    EXPECT_EQ(legend.obtainLegendWidth(), 14);
}

TEST(KXLegend, SkipsShownCellsThatAreNoMore)
{
    const UXFixedMeasurer measurer;
    KXTestChart chart;
    chart.setLabels({"a", "b", "c"});
    chart.getChartProperty()->setLegendPosition(UXPosition::Right);
    chart.setRect(uxMakeRect(0, 0, 402, 302));
    chart.layout();
    KXLegend& legend = *chart.getLegend();
    const auto* view = dynamic_cast<const UXVirtualScrollView*>(legend.getChildren().front());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->getContentHeight(), 28 * 3 + 2 - 13);
    chart.cellCount = 1;
    legend.markDataUpdated();
    legend.layout();
    EXPECT_EQ(view->getContentHeight(), 28 + 2 - 13);
    legend.setArrangement(UXArrangement::Row);
    legend.layout();
    EXPECT_EQ(view->getContentWidth(), 2 + 29);
    chart.cellCount = 3;
    legend.markDataUpdated();
    legend.layout();
    EXPECT_EQ(view->getContentWidth(), 2 + 88 + 2 * 20) << "skipped, not forgotten";
}

TEST(KXLegend, AChartWithoutShapesOfItsOwnTakesTheLegends)
{
    const UXFixedMeasurer measurer;
    KXTestChart chart;
    chart.setLabels({"a", "b"});
    chart.setRect(uxMakeRect(0, 0, 402, 302));
    chart.getLegend()->setSymbolStyle(UXSymbolStyle::Circle);
    chart.layout();
    EXPECT_NE(uxPaintToText(chart).find("Circle"), std::string::npos) << uxPaintToText(chart);

    class WatchedLegend : public KXLegend {
    public:
        void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event) override
        {
            ++told;
            KXLegend::virtualScrollViewContentOffsetChanged(view, event);
        }
        int told = 0;
    } legend;
    legend.setDelegate(&chart);
    legend.setRect({0, 0, 100, 100});
    legend.layout();
    EXPECT_GT(legend.told, 0) << "cells are placed where scrolling places them";
    const int before = legend.told;
    legend.requireLayout();
    legend.layout();
    EXPECT_GT(legend.told, before);
    legend.setDelegate(nullptr);
}

TEST(KXChartLabel, ShowsItsDefaultTextWhileItsOwnIsEmpty)
{
    const UXFixedMeasurer measurer;
    KXChartLabel label;
    label.setDefaultText("none");
    label.autoResize();
    EXPECT_EQ(label.getRect().width, 24);
    label.setText("own text");
    label.autoResize();
    EXPECT_EQ(label.getRect().width, 48);
}

} // namespace
