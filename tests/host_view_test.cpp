#include "host_view_model.h"
#include "ux/ux_key_code.h"
#include "view_grid.h"

#include <functional>
#include <gtest/gtest.h>
#include <tuple>

namespace {

UXEvent makeKey(UXKeyCode code, bool isCtrl = false)
{
    UXEvent event(UXEventType::KeyDown);
    event.setKeyCode(static_cast<int>(code));
    if (isCtrl)
        event.addEventKey(UXEventKey::Ctrl);
    return event;
}

UXEvent makeKey(ViewKeyCode code, bool isCtrl) { return makeKey(static_cast<UXKeyCode>(code), isCtrl); }

void click(ViewModel& model, const UXControlPoint& point, UXEventKey button)
{
    UXEvent event;
    event.addEventKey(button);
    model.control.mouseMove(point, UXEvent());
    model.control.press(point, event);
    model.control.mouseUp(point, event);
}

UXEvent makeZoomWheel(double notches)
{
    UXEvent event(UXEventType::MouseWheel);
    event.addEventKey(UXEventKey::Ctrl);
    event.setWheelDelta({0, notches});
    return event;
}

} // namespace

TEST(HostView, CellsFillTheRoomAndStayLargeEnough)
{
    const std::tuple<std::size_t, UXSize, UXSize, std::vector<UXRect>> cases[] = {
        {0, {500, 300}, {500, 300}, {}},
        {1, {500, 300}, {500, 300}, {{12, 12, 476, 276}}},
        {2, {1000, 300}, {1000, 300}, {{12, 12, 482, 276}, {506, 12, 482, 276}}},
        {2, {300, 500}, {300, 500}, {{12, 12, 276, 232}, {12, 256, 276, 232}}},
        {3, {1000, 612}, {1000, 612}, {{12, 12, 976, 288}, {12, 312, 482, 288}, {506, 312, 482, 288}}},
        {2, {1, 1}, {264, 356}, {{12, 12, 240, 160}, {12, 184, 240, 160}}},
    };
    for (const auto& [count, room, size, cells] : cases) {
        SCOPED_TRACE(testing::Message() << count << " in " << room.width << "x" << room.height);
        const ViewGrid grid = arrangeViewGrid(count, room);
        EXPECT_EQ(grid.size, size);
        EXPECT_EQ(grid.cells, cells);
    }
}

TEST(HostView, WhatIsPaintedInPartsIsThePictureAsAWhole)
{
    struct Step {
        const char* name;
        double mostShare; // of the picture that is painted
        std::function<void(ViewModel&)> act;
    };
    const Step steps[] = {
        {"hover", 0.75,
         [](ViewModel& m) { m.control.mouseMove(m.obtainMiddle(1, GaugeMainLabel), UXEvent()); }},
        {"menu", 0.95,
         [](ViewModel& m) { click(m, m.obtainMiddle(0, ValueLabel), UXEventKey::RightButton); }},
        {"entry", 0.2, [](ViewModel& m) { m.control.pressKey(makeKey(UXKeyCode::Down)); }},
        {"closed", 0.6, [](ViewModel& m) { m.control.pressKey(makeKey(UXKeyCode::Escape)); }},
        {"ring", 1, [](ViewModel& m) { m.control.pressKey(makeKey(UXKeyCode::Tab)); }},
        {"next", 1, [](ViewModel& m) { m.control.pressKey(makeKey(UXKeyCode::Tab)); }},
        {"label", 0.6, [](ViewModel& m) { m.board.getChart(0).getChild(ValueLabel)->invalidate(); }},
        {"pointer gone", 0.75,
         [](ViewModel& m) {
             m.control.mouseLeave({0, 0}, UXEvent());
         }},
    };
    for (const double scale : {1.0, 1.25, 2.0}) {
        for (const int zoomed : {0, 1}) {
            ViewModel model({static_cast<int>(700 * scale), static_cast<int>(300 * scale)}, scale);
            for (int i = 0; i < zoomed; ++i)
                model.control.turnWheel({333, 111}, makeZoomWheel(-1));
            std::vector<std::uint32_t> before = model.paint();
            for (const auto& [name, mostShare, act] : steps) {
                SCOPED_TRACE(testing::Message() << name << ", scale " << scale << ", zoom " << zoomed);
                act(model);
                const std::vector<std::uint32_t> partly = model.paint();
                double painted = 0;
                for (const UXRect& area : model.areas)
                    painted += static_cast<double>(area.width) * area.height;
                EXPECT_LE(painted, mostShare * static_cast<double>(partly.size()));
                model.control.notifyFullScreenDirtyRect(nullptr);
                EXPECT_TRUE(model.paint() == partly);
                before = partly;
            }
            EXPECT_TRUE(model.paint() == before);
            EXPECT_TRUE(model.areas.empty());
        }
    }
}

TEST(HostView, SizesAndZoomsComeBackToTheSamePicture)
{
    ViewModel model({700, 300}, 1);
    const std::vector<std::uint32_t> first = model.paint();
    model.control.resize({431, 517}, 1.5);
    EXPECT_FALSE(model.paint() == first);
    model.control.resize({700, 300}, 1);
    EXPECT_TRUE(model.paint() == first);

    // What is under the pointer stays there, until an edge of the board would come into the view.
    const UXControlPoint pointer = model.obtainMiddle(1, GaugeMainLabel);
    const UXPoint held = model.control.controlSpaceToDiagramSpace(pointer);
    model.control.turnWheel(pointer, makeZoomWheel(-0.5));
    EXPECT_EQ(model.control.getZoomRatio(), 1);
    model.control.turnWheel(pointer, makeZoomWheel(-1.5));
    EXPECT_EQ(model.control.getZoomRatio(), 1.25 * 1.25);
    EXPECT_EQ(model.control.controlSpaceToDiagramSpace(pointer), held);
    model.control.pressKey(makeKey(UXKeyCode::Home));
    EXPECT_EQ(model.control.getDiagramOriginInControlSpace().y, 0);
    model.control.pressKey(makeKey(UXKeyCode::End));
    EXPECT_EQ(model.control.getDiagramOriginInControlSpace().y, 300 - 469);
    model.control.pressKey(makeKey(ViewKeyCode::Digit0, true));
    EXPECT_TRUE(model.paint() == first);

    // A board that is smaller than the view stands in its middle.
    model.control.pressKey(makeKey(ViewKeyCode::Minus, true));
    EXPECT_EQ(model.control.getDiagramOriginInControlSpace(), UXControlPoint(70, 30));
}

TEST(HostView, ItemsAnswerTheMouseAndTheKeyboard)
{
    ViewModel model({700, 300}, 1);
    const UXControlPoint value = model.obtainMiddle(0, ValueLabel);
    model.control.mouseMove(value, UXEvent());
    EXPECT_EQ(model.control.getShownCursor(), static_cast<int>(UXCursor::PointingHand));
    model.control.mouseMove({2, 2}, UXEvent());
    EXPECT_EQ(model.control.getShownCursor(), static_cast<int>(UXCursor::Arrow));
    click(model, value, UXEventKey::LeftButton);
    EXPECT_EQ(model.log, "click Nonfarm jobs: 143093; ");

    // The menu hangs from the pointer, inside the view, and keeps all input to itself.
    model.log.clear();
    click(model, value, UXEventKey::RightButton);
    const UXRect menu = model.control.getMenu().getMenuRect();
    EXPECT_EQ(UXPoint(menu.x, menu.y), UXPoint(value.x, value.y));
    click(model, {menu.x + 20, menu.y + 15}, UXEventKey::LeftButton);
    click(model, {670, 270}, UXEventKey::RightButton);
    EXPECT_EQ(model.control.getMenu().getMenuRect().getBottom(), 300);
    click(model, value, UXEventKey::LeftButton);
    EXPECT_FALSE(model.control.getMenu().isOpen());
    EXPECT_EQ(model.log, "copy 143093; ");

    // Tab goes round, by the buttons of each chart; Enter clicks, and a menu opened by its key begins with
    // its first entry.
    model.log.clear();
    click(model, {2, 2}, UXEventKey::LeftButton);
    for (const UXKeyCode code :
         {UXKeyCode::Tab, UXKeyCode::Tab, UXKeyCode::Tab, UXKeyCode::Tab, UXKeyCode::Tab, UXKeyCode::Enter})
        model.control.pressKey(makeKey(code));
    EXPECT_TRUE(model.board.getFocusedCard()->getShowRing());
    model.control.pressKey(makeKey(ViewKeyCode::ContextMenu, false));
    for (const UXKeyCode code : {UXKeyCode::Up, UXKeyCode::Space, UXKeyCode::Tab, UXKeyCode::Tab})
        model.control.pressKey(makeKey(code));
    EXPECT_EQ(model.log, "click Nonfarm jobs: 143093; copy Nonfarm jobs: 143093; ");
    EXPECT_EQ(&model.board.getFocusedCard()->getChart(), &model.board.getChart(1));
    model.control.press({2, 2}, UXEvent());
    EXPECT_EQ(model.board.getFocusedCard(), nullptr);
}
