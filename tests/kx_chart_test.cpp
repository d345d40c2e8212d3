#include "kx_chart.h"

#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_legend.h"
#include "kx_test_provider.h"
#include "ux/ux_event.h"
#include "ux/ux_painter.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

/** A chart that keeps the plot area it is given, with legend cells of labels that a test sets. */
class PlainChart : public KXChart, public KXChartDataUser {
public:
    PlainChart() : KXChartDataUser(this) {}
    void customPrepareData(KXChartDataProvider*, bool&) override {}
    void customReloadData() override {}
    std::uint64_t obtainLegendCellSize() override { return labels.size(); }
    std::string obtainLegendLabel(std::uint64_t index) override { return labels[index]; }
    bool obtainLegendShouldShowCell(std::uint64_t index) override { return index != hiddenCell; }
    bool mouseMoved(const UXEvent& event)
    {
        bool stop = false;
        return customMouseMove(event, stop);
    }
    bool mouseLeft(const UXEvent& event)
    {
        bool stop = false;
        return customMouseLeave(event, stop);
    }

    std::vector<std::string> labels;
    std::uint64_t hiddenCell = UINT64_MAX;
    UXRect plotArea;

protected:
    void _customLayout(UXRect area) override { plotArea = area; }
};

struct LayoutCase {
    const char* name;
    int width, height;
    const char* title; // 18 high, 9 wide a letter
    UXPosition titlePosition, titleAlign;
    const char* legendLabel; // one cell; 23 + 6.5 a letter wide; the row is 15.6 + 13 + 12 high
    UXPosition legendPosition;
    std::string parts; // title | legend | plot area, "-" for one that is left out
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
    };
    const UXFixedMeasurer measurer;
    for (const LayoutCase& c : cases) {
        SCOPED_TRACE(c.name);
        PlainChart chart;
        KXChartProperty& property = *chart.getChartProperty();
        property.setTitleValue(c.title);
        property.setTitlePosition(c.titlePosition);
        property.setTitleVerticalAlign(c.titleAlign);
        property.setLegendPosition(c.legendPosition);
        if (*c.legendLabel)
            chart.labels = {c.legendLabel};
        chart.setRect(uxMakeRect(30, 40, c.width, c.height));
        chart.layout();
        EXPECT_EQ(write(chart.getTitle()->getRect()) + " | " + write(chart.getLegend()->getRect()) + " | " +
                      write(chart.plotArea),
                  c.parts);
    }
}

TEST(KXChart, AnAbsurdTitleLeavesAnEmptyPlotArea)
{
    const UXFixedMeasurer measurer;
    for (const UXPosition position :
         {UXPosition::Top, UXPosition::Bottom, UXPosition::Left, UXPosition::Right}) {
        PlainChart chart;
        chart.labels = {"cell"}; // beside the title it takes 40 and the gap
        KXChartProperty& property = *chart.getChartProperty();
        UXTextProperty text = property.getTitleProperty();
        text.font.size = (std::numeric_limits<int>::max)();
        property.setTitleProperty(text);
        property.setTitleValue("title");
        property.setTitlePosition(position);
        chart.setRect(uxMakeRect(0, 0, 402, 302));
        chart.layout();
        const bool beside = position == UXPosition::Left || position == UXPosition::Right;
        EXPECT_EQ(uxMakeSize(chart.plotArea.width, chart.plotArea.height),
                  beside ? uxMakeSize(200, 245) : uxMakeSize(400, 0));
    }
}

TEST(KXChart, APropertyChangeReachesThePartThatShowsIt)
{
    const UXFixedMeasurer measurer;
    PlainChart chart;
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
    PlainChart chart;
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

TEST(KXChart, TheToolboxShowsOnlyUnderThePointerOfAHostThatWantsIt)
{
    PlainChart chart;
    KXTestProvider provider;
    chart.setRect(uxMakeRect(0, 0, 202, 102));
    chart.layout();
    KXChartToolbox& toolbox = *chart.getToolbox();
    EXPECT_EQ(toolbox.getRect(), UXRect(2, 2, 198, 25)) << "hidden, it has its place all the same";
    const UXEvent event(UXEventType::MouseMove);
    chart.mouseMoved(event);
    EXPECT_FALSE(toolbox.getVisible()) << "no provider";
    chart.setDataProvider(&provider);
    chart.mouseMoved(event);
    EXPECT_FALSE(toolbox.getVisible());
    provider.wantsToolbox = true;
    provider.calls.clear();
    chart.mouseMoved(event);
    chart.mouseMoved(event);
    EXPECT_TRUE(toolbox.getVisible());
    EXPECT_EQ(provider.calls,
              (std::vector<std::string>{"shouldShowToolbox", "toolboxContext", "shouldShowToolbox"}));
    chart.mouseLeft(event);
    EXPECT_FALSE(toolbox.getVisible());
}

TEST(KXChart, PaintsGroundAndBorderThenItsChildrenAndTheToolboxLast)
{
    /** A child that says in the recording that it was painted. */
    class Mark : public UXObject {
    public:
        explicit Mark(double place) : m_place(place) {}
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
    PlainChart chart;
    chart.setRect(uxMakeRect(0, 0, 100, 50));
    chart.layout();
    auto* first = new Mark(11);
    auto* hidden = new Mark(12);
    auto* elsewhere = new Mark(13);
    auto* inToolbox = new Mark(14);
    first->setRect(uxMakeRect(0, 0, 100, 50));
    hidden->setRect(uxMakeRect(0, 0, 100, 50));
    hidden->setVisible(false);
    elsewhere->setRect(uxMakeRect(500, 0, 10, 10));
    inToolbox->setRect(uxMakeRect(0, 0, 100, 25));
    chart.addChild(hidden);
    chart.addChild(elsewhere);
    chart.addChild(first);
    chart.getToolbox()->addChild(inToolbox);
    chart.getToolbox()->setVisible(true);

    std::string text = uxPaintToText(chart);
    EXPECT_EQ(text.find("fill"), std::string::npos) << "a clear ground is not filled";
    EXPECT_EQ(text.find("stroke"), std::string::npos);
    chart.setBackgroundColor(UXColor(255, 255, 255, 0.5));
    chart.setShowBorder(true);
    text = uxPaintToText(chart);
    const std::size_t ground = text.find("fill"), border = text.find("stroke"),
                      child = text.find("setLineWidth 11"), toolbox = text.find("setLineWidth 14");
    ASSERT_NE(toolbox, std::string::npos) << text;
    EXPECT_LT(ground, border);
    EXPECT_LT(border, child);
    EXPECT_LT(child, toolbox);
    EXPECT_EQ(text.find("setLineWidth 12"), std::string::npos);
    EXPECT_EQ(text.find("setLineWidth 13"), std::string::npos);
}

TEST(KXLegend, MeasuresCellsOncePerChange)
{
    UXFixedMeasurer measurer;
    PlainChart chart;
    KXLegend& legend = *chart.getLegend();
    chart.labels = {"four", std::string(50, 'x'), "no"}; // 23 + 6.5 a letter
    chart.hiddenCell = 1;
    EXPECT_EQ(legend.obtainLegendWidth(), 23 + 26 + 12 + 2) << "the widest shown cell, bar and margins";
    EXPECT_EQ(legend.obtainLegendHeight(), 1.2 * 13 + 13 + 12);
    const int asked = measurer.askedCount;
    legend.obtainLegendWidth();
    EXPECT_EQ(measurer.askedCount, asked);
    chart.hiddenCell = UINT64_MAX;
    legend.markCellVisibleUpdated();
    EXPECT_EQ(legend.obtainLegendWidth(), 200 + 12 + 2) << "cut at the greatest cell width";
    legend.setLabelColor(UXColor(1, 1, 1));
    legend.obtainLegendWidth();
    EXPECT_EQ(measurer.askedCount, asked) << "neither visibility nor colour measures";
    legend.setDelegate(nullptr);
    EXPECT_EQ(legend.obtainLegendWidth(), 14);

    const std::string saved = legend.serialize();
    KXLegend read;
    EXPECT_TRUE(read.deserialize(saved));
    EXPECT_EQ(read.serialize(), saved);
}

TEST(KXLegend, SkipsShownCellsThatAreNoMore)
{
    const UXFixedMeasurer measurer;
    PlainChart chart;
    chart.labels = {"a", "b", "c"};
    chart.getChartProperty()->setLegendPosition(UXPosition::Right);
    chart.setRect(uxMakeRect(0, 0, 402, 302));
    chart.layout();
    KXLegend& legend = *chart.getLegend();
    const auto* view = dynamic_cast<const UXVirtualScrollView*>(legend.getChildren().front());
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->getContentHeight(), 28 * 3 + 2 - 13);
    chart.labels.resize(1);
    legend.markDataUpdated();
    legend.layout();
    EXPECT_EQ(view->getContentHeight(), 28 + 2 - 13);
    legend.setArrangement(UXArrangement::Row);
    legend.layout();
    EXPECT_EQ(view->getContentWidth(), 2 + 29);
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
