#include "host_view_model.h"
#include "kx_chart_items.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_toolbox.h"
#include "kx_chart_toolbox_item.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_key_code.h"
#include "ux/ux_virtual_scroll_view.h"

#include <gtest/gtest.h>

namespace {

/** Bars of strikes by phase and size, and the strikes of two phases as values. */
class HostViewLinks : public testing::Test {
protected:
    HostViewLinks()
    {
        uxCairoInstall();
        for (const char* chart : {"bars-phases", "strikes-approach", "strikes-climb"})
            board.openSample(findChartSample(std::string(KX_SOURCE_DIR "/samples/") + chart + ".chart.json"),
                             handlers);
        control.resize({1000, 640}, 1);
        control.paintDirtyAreas();
    }

    UXControlPoint place(UXObject* object, UXPoint point) const
    {
        return control.diagramSpaceToControlSpace(object->translatePointToParent(point, nullptr));
    }
    UXControlPoint middle(UXObject* object) const
    {
        const UXRect rect = object->getBoundingRect();
        return place(object, UXPoint(uxMidX(rect), uxMidY(rect)));
    }
    KXHighlightResult result(std::size_t chart) const
    {
        return KXChartLinkedActionDiagram::find(&board.getChart(chart))
            ->obtainHighlightResult(&board.getChart(chart));
    }
    void key(UXKeyCode code)
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(code));
        control.pressKey(event);
    }

    std::string log;
    ViewItemHandlers handlers{{}, [this](const std::string& text) { log += text; }};
    ViewBoard board;
    ViewControl control{board};
};

} // namespace

TEST_F(HostViewLinks, AnItemLightsWhatIsAboutTheSame)
{
    auto& bars = dynamic_cast<KXXYAxisChart&>(board.getChart(0));
    const UXRect area = bars.getMarksArea();
    // The first category's bar lies along the top of the plot.
    control.mouseMove(place(bars.getPlot(), {area.x + 60, area.y + area.height / 14}), UXEvent());
    EXPECT_EQ(result(1), KXHighlightResult::Highlighted);
    EXPECT_NE(result(2), KXHighlightResult::Highlighted);
    control.mouseMove(middle(board.getChart(2).getChild(ValueLabel)), UXEvent());
    EXPECT_EQ(result(0), KXHighlightResult::Highlighted);
    EXPECT_TRUE(bars.getItems()->isHighlighted({0, 0, 1}));
    EXPECT_FALSE(bars.getItems()->isHighlighted({0, 0, 0}));
    control.mouseMove({2, 2}, UXEvent());
    EXPECT_FALSE(bars.isHighlighting());
}

TEST_F(HostViewLinks, TheStripCopiesTheTable)
{
    KXChart& chart = board.getChart(1);
    control.mouseMove(middle(&chart), UXEvent());
    control.paintDirtyAreas();
    const std::vector<KXChartToolboxItem*> items = chart.getToolbox()->getItems();
    ASSERT_EQ(items.size(), 1U);
    UXEvent event;
    event.addEventKey(UXEventKey::LeftButton);
    control.mouseMove(middle(items[0]), UXEvent());
    control.press(middle(items[0]), event);
    control.mouseUp(middle(items[0]), event);
    EXPECT_TRUE(chart.getToolbox()->getMenuOpen());
    for (const UXKeyCode code : {UXKeyCode::Down, UXKeyCode::Right, UXKeyCode::Enter})
        key(code);
    EXPECT_FALSE(chart.getToolbox()->getMenuOpen());
    EXPECT_EQ(log, "4619\n");
}
