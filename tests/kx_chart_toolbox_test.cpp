#include "kx_chart_toolbox.h"

#include "kx_chart_toolbox_item.h"
#include "kx_chart_toolbox_menu_context.h"
#include "kx_menu.h"
#include "kx_menu_event_diagram.h"
#include "kx_menu_item.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using Calls = std::vector<std::string>;

/** A chart of 200 x 120 on a diagram of 400 x 300, whose host wants four buttons: one that acts, one with a
 * menu, one that is disabled and one that asks. */
class KXChartToolboxTest : public testing::Test {
protected:
    KXChartToolboxTest()
    {
        diagram.setRect(uxMakeRect(0, 0, 400, 300));
        KXMenuEntry disabled = makeEntry("Disabled", [this] { log += "disabled "; });
        disabled.enabled = false;
        KXMenuEntry asking = makeEntry("Ask");
        asking.identifier = "ask";
        const std::vector<KXMenuEntry> rows{makeEntry("Row", [this] { log += "row "; }), makeEntry("Other")};
        strip.entries = {makeEntry("Act", [this] { log += "act "; }), makeEntry("Menu", {}, rows), disabled,
                         asking};
        menu.entries = {makeEntry("Answer", [this] { log += "answer "; })};
        provider.wantsToolbox = true;
        provider.toolboxContext = &strip;
        provider.dropDownContext = &menu;
        make();
    }
    void make()
    {
        chart = std::make_unique<KXValueChart>();
        chart->setAlign(UXAlign::None);
        chart->setRect(uxMakeRect(0, 0, 200, 120));
        chart->setDataProvider(&provider);
        diagram.addChild(chart.get());
        diagram.layout();
        provider.calls.clear();
    }
    KXChartToolbox& toolbox() const { return *chart->getToolbox(); }
    UXPoint button(std::size_t index) const { return middleOf(*toolbox().getItems().at(index)); }
    void hover() { input.move({100, 60}); }

    UXFixedMeasurer measurer;
    UXDiagram diagram;
    KXTestInput input{diagram};
    KXChartToolboxMenuContext strip, menu;
    KXTestProvider provider;
    std::unique_ptr<KXValueChart> chart;
    std::string log;
};

} // namespace

TEST_F(KXChartToolboxTest, ShowsUnderThePointerAndTakesEventsOnItsButtonsOnly)
{
    EXPECT_FALSE(toolbox().getVisible());
    hover();
    EXPECT_TRUE(toolbox().getVisible());
    ASSERT_EQ(toolbox().getItems().size(), 4u);
    EXPECT_EQ(toolbox().getItems()[3]->getRect(), UXRect(196 - 24, 0, 24, 24));
    EXPECT_EQ(diagram.obtainObjectsUnder(button(3))[0].getObject(), toolbox().getItems()[3]);
    EXPECT_EQ(diagram.obtainObjectsUnder({20, 15})[0].getObject(), chart.get());
    input.move(button(0));
    EXPECT_TRUE(toolbox().getItems()[0]->getHintVisible());
    input.move({300, 200});
    EXPECT_FALSE(toolbox().getVisible());
}

TEST_F(KXChartToolboxTest, AClickActsAfterTheEventAndAsksAnew)
{
    hover();
    provider.calls.clear();
    input.press(button(0));
    UXEvent release = KXTestInput::at(button(0));
    release.postAction([this] { strip.entries.pop_back(); });
    diagram.mouseUp(release);
    EXPECT_EQ(log, "act ");
    EXPECT_EQ(provider.calls, Calls{"toolboxContext"});
    EXPECT_EQ(toolbox().getItems().size(), 3u) << "what changed meanwhile shows";
}

TEST_F(KXChartToolboxTest, AnOpenMenuKeepsTheStrip)
{
    hover();
    strip.entries[1].entries[0].checked = true;
    input.click(button(1));
    ASSERT_TRUE(toolbox().getMenuOpen());
    EXPECT_TRUE(toolbox().getItems()[1]->getMenuOpen());
    const KXMenu& open = *toolbox().getMenuDiagram()->getMenus()[0];
    EXPECT_TRUE(open.getItem(0)->getEntry().checked) << "as the host wants it now";
    EXPECT_EQ(open.getFrameRect(), UXRect(124, 26, 120, 60));
    diagram.mouseLeave(UXEvent());
    EXPECT_TRUE(toolbox().getVisible());
    input.click(middleOf(*open.getItem(0)));
    EXPECT_EQ(log, "row ");
    EXPECT_FALSE(toolbox().getMenuOpen());
    EXPECT_TRUE(toolbox().getVisible()) << "the pointer, which had left, is over the chart again";
    input.click(button(1));
    input.press({300, 200});
    input.release({300, 200});
    EXPECT_FALSE(toolbox().getVisible()) << "the pointer has left";

    hover();
    input.click(button(1));
    input.press(button(1));
    input.release(button(1));
    EXPECT_FALSE(toolbox().getMenuOpen()) << "the button closes what it opened";
    EXPECT_FALSE(toolbox().getItems()[1]->getMenuOpen());
}

TEST_F(KXChartToolboxTest, AsksForADropDownMenuOnlyWhereOneMayBe)
{
    const auto askAt = [this](std::size_t index, bool wanted) {
        hover();
        input.move(button(index));
        provider.calls.clear();
        provider.wantsDropDown = wanted;
        input.press(button(index));
        input.release(button(index));
        return toolbox().getMenuOpen();
    };
    EXPECT_FALSE(askAt(3, false));
    EXPECT_EQ(provider.calls, Calls{"shouldDropDown ask"});
    EXPECT_FALSE(askAt(2, true)) << "disabled";
    EXPECT_EQ(provider.calls, Calls());
    EXPECT_TRUE(askAt(3, true));
    EXPECT_EQ(provider.calls, (Calls{"shouldDropDown ask", "dropDownContext ask"}));
}

TEST_F(KXChartToolboxTest, WorksByKeys)
{
    using enum UXKeyCode;
    hover();
    diagram.setFocusedObject(&toolbox());
    provider.wantsDropDown = true;
    for (const UXKeyCode key : {Right, Enter, Right, Down, Down, Up, Enter})
        EXPECT_TRUE(input.type(key));
    EXPECT_EQ(log, "act row ");
    EXPECT_TRUE(toolbox().getItems()[1]->getFocused());
    for (const UXKeyCode key : {End, Space, Enter, Left, Enter})
        EXPECT_TRUE(input.type(key));
    EXPECT_EQ(log, "act row answer ") << "the disabled button does nothing";
    input.move({300, 200});
    EXPECT_TRUE(toolbox().getVisible()) << "the keyboard is still there";
    diagram.setFocusedObject(chart.get());
    EXPECT_FALSE(toolbox().getVisible() || input.type(Enter)) << "a hidden strip takes no keys";
}

TEST_F(KXChartToolboxTest, TabComesByTheStrip)
{
    const auto tab = [this](bool back = false) {
        UXEvent event;
        event.setKeyCode(static_cast<int>(UXKeyCode::Tab));
        if (back)
            event.addEventKey(UXEventKey::Shift);
        return diagram.keyDown(event);
    };
    const auto isOnStrip = [this] {
        return toolbox().getVisible() && diagram.getFocusedObject() == &toolbox() &&
               toolbox().getItems().at(0)->getFocused();
    };
    diagram.setFocusedObject(chart.get());
    EXPECT_FALSE(tab(true)) << "before the chart is the host's";
    EXPECT_TRUE(tab() && isOnStrip());
    EXPECT_FALSE(tab() || toolbox().getVisible()) << "beyond the strip, too";
    EXPECT_TRUE(tab() && isOnStrip());
    EXPECT_TRUE(tab(true));
    EXPECT_EQ(diagram.getFocusedObject(), chart.get());
    EXPECT_FALSE(toolbox().getVisible());

    EXPECT_TRUE(tab() && input.type(UXKeyCode::Enter));
    EXPECT_EQ(log, "act ");
    EXPECT_TRUE(isOnStrip() && input.type(UXKeyCode::Escape));
    EXPECT_FALSE(toolbox().getVisible() || input.type(UXKeyCode::Escape));
    EXPECT_EQ(diagram.getFocusedObject(), chart.get());

    EXPECT_TRUE(tab());
    hover();
    diagram.setFocusedObject(nullptr);
    EXPECT_TRUE(toolbox().getVisible()) << "under the pointer";
    provider.wantsToolbox = false;
    diagram.setFocusedObject(chart.get());
    EXPECT_FALSE(tab()) << "the host wants none";
}

TEST_F(KXChartToolboxTest, WhatHasNoRoomIsInAMenu)
{
    provider.wantsDropDown = true;
    chart->setRect(uxMakeRect(0, 0, 53, 120)); // just enough for two
    diagram.layout();
    input.move({30, 60});
    ASSERT_EQ(toolbox().getItems().size(), 2u);
    input.click(button(1));
    const KXMenu* more = toolbox().getMenuDiagram()->getMenus().at(0);
    ASSERT_EQ(more->getItemCount(), 3);
    input.click(middleOf(*more->getItem(2)));
    ASSERT_TRUE(toolbox().getMenuOpen()) << "the last one asked";
    EXPECT_EQ(toolbox().getMenuDiagram()->getMenus().at(0)->getItem(0)->getEntry().text, "Answer");
    input.click(middleOf(*toolbox().getMenuDiagram()->getMenus()[0]->getItem(0)));
    EXPECT_EQ(log, "answer ") << "the strip had stayed for it";
    EXPECT_FALSE(toolbox().getVisible());
}

TEST_F(KXChartToolboxTest, AnActionMayDestroyTheChartAndAChartThatIsTakenAwayHasNoMenu)
{
    strip.entries[1].entries[0].action = [this] { chart.reset(); };
    hover();
    input.click(button(1));
    input.type(UXKeyCode::Down);
    input.type(UXKeyCode::Enter);
    EXPECT_FALSE(chart);

    make();
    hover();
    input.click(button(1));
    diagram.removeChild(chart.get());
    input.move({300, 200});
    EXPECT_FALSE(toolbox().getMenuOpen());
}
