#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_event.h"
#include "ux/ux_global_smooth_scrolling_event_diagram.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_use_case_diagram.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_paint_to_text.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

class Control : public UXControl {
public:
    std::string log;
    bool reduceMotion = false;

    void customEvent() override { log += "event "; }
    void notifyCursorChange(int cursor) override { log += "cursor" + std::to_string(cursor) + " "; }
    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point) override
    {
        log += "menu" + std::to_string(point.x) + (param->event->containUseCase(2) ? "" : "!") + " ";
    }
    bool shouldReduceMotion() const override { return reduceMotion; }
};

/** A control of 200 x 100 pixels that shows a diagram of 400 x 100 units. */
class UXControlInput : public testing::Test {
protected:
    UXControlInput()
    {
        context.addDiagram(&diagram);
        context.setActiveDiagram(&control, &diagram);
        control.setUseCases({2});
        control.setControlRect({0, 0, 200, 100});
        diagram.setRect({0, 0, 400, 100});
        diagram.addChild(object);
        object->setRect({10, 10, 20, 20});
        control.log.clear();
    }

    void runFrames(int count)
    {
        for (int i = 0; i < count; ++i)
            control.timer(now += 16);
    }
    void click(int x, const UXEvent& event)
    {
        control.mouseDown({x, 15}, event);
        control.mouseUp({x, 15}, event);
    }
    int originX() const { return control.getDiagramOriginInControlSpace().x; }

    UXContext context;
    UXDiagram diagram{&context};
    Control control;
    std::unique_ptr<UXObject> owned = std::make_unique<UXObject>();
    UXObject* object = owned.get();
    std::int64_t now = 0;
};

} // namespace

TEST_F(UXControlInput, AnEventReachesTheDiagramInBothSpaces)
{
    control.setScalingFactor(2);
    control.setZoomRatio(2);
    control.setDiagramOriginInControlSpace({8, 4});
    std::string seen;
    object->registerEventHandler(UXEventType::MouseDown, [&](const UXEvent& event) {
        seen = std::to_string(event.getMousePoint().x) + "," + std::to_string(event.getMousePoint().y) + "@" +
               std::to_string(event.getControlPoint().x) + (event.containUseCase(2) ? " 2" : "") +
               (event.getControl() == &control ? " own" : "");
        return true;
    });
    // The object's last pixel is its own, the one behind it is not.
    EXPECT_TRUE(control.mouseDown({8 + 29 * 4 + 3, 4 + 10 * 4}, UXEvent()));
    EXPECT_EQ(seen, "29,10@127 2 own");
    EXPECT_FALSE(control.mouseDown({8 + 30 * 4, 4 + 10 * 4}, UXEvent()));
    const UXCoordinateMap map = context.getCoordinateMap(&control, &diagram);
    EXPECT_EQ(map.toControlSpace({10, 0}).x, 48);
    EXPECT_EQ(map.toDiagramSpace({48, 4}).x, 10);
}

TEST_F(UXControlInput, TheCursorFollowsThePointerAndPresses)
{
    object->setCursor(UXCursor::PointingHand);
    control.mouseMove({15, 15}, UXEvent());
    control.mouseMove({16, 15}, UXEvent());
    control.mouseDown({16, 15}, UXEvent());
    control.mouseMove({90, 15}, UXEvent());
    control.mouseUp({90, 15}, UXEvent());
    EXPECT_EQ(control.log, "cursor1 event event event event cursor0 event ");

    // The press ends with the diagram that it began on.
    UXDiagram other(&context);
    control.mouseDown({16, 15}, UXEvent());
    context.setActiveDiagram(&control, &other);
    context.setActiveDiagram(&control, &diagram);
    control.log.clear();
    control.mouseMove({90, 15}, UXEvent());
    EXPECT_EQ(control.log, "cursor0 event ");
}

TEST_F(UXControlInput, ARespondingObjectAsksForAMenuOrKeepsTheZoom)
{
    object->registerEventResponder(UXEventResponderType::ContextMenu, [this](const UXEvent& event) {
        event.postAction([this] { control.log += "posted "; });
        return true;
    });
    object->registerEventResponder(UXEventResponderType::Zoom, {UXEventKey::Ctrl},
                                   [](const UXEvent&) { return true; });
    const UXEvent right = uxMakeEventAt(0, 0, UXEventKey::RightButton);
    click(15, right);
    click(90, right);
    EXPECT_EQ(control.log, "event event menu15 posted event event ");

    control.zoomIn(true, uxMakeEventAt(15, 15, UXEventKey::Ctrl));
    EXPECT_EQ(control.getZoomRatio(), 1);
    control.zoomIn(true, uxMakeEventAt(90, 15, UXEventKey::Ctrl));
    EXPECT_GT(control.getZoomRatio(), 1);
}

TEST_F(UXControlInput, AGlobalDiagramThatKeepsAMoveTakesTheHoverAndIsPaintedAbove)
{
    UXGlobalEventDiagram above;
    diagram.registerGlobalEventDiagram(&above);
    UXGlobalEventDiagram top;
    above.registerGlobalEventDiagram(&top);
    top.registerGlobalEventDiagram(&above); // would never end
    EXPECT_TRUE(top.getGlobalEventDiagrams().empty());
    UXObject* cover = new UXObject;
    above.addChild(cover);
    cover->setRect({0, 0, 20, 20});
    cover->registerEventHandler(UXEventType::MouseMove, [](const UXEvent&) { return true; });
    std::string log;
    for (const UXEventType type : {UXEventType::MouseEnter, UXEventType::MouseLeave})
        object->registerEventHandler(type, [&log, type](const UXEvent&) {
            return log += type == UXEventType::MouseEnter ? "in " : "out ", false;
        });
    control.mouseMove({25, 25}, UXEvent());
    control.mouseMove({15, 15}, UXEvent());
    EXPECT_EQ(log, "in out ");

    diagram.layout();
    diagram.clearDirtyRect();
    cover->invalidate();
    EXPECT_EQ(context.getDirtyRect(&diagram), UXRect(0, 0, 20, 20));
    delete cover;
}

TEST_F(UXControlInput, TheWheelGlidesToItsPlaceAndADragGlidesOnUntilAPress)
{
    UXGlobalSmoothScrollingEventDiagram scrolling;
    diagram.registerGlobalEventDiagram(&scrolling);
    runFrames(1);
    EXPECT_TRUE(control.mouseWheel({50, 50}, uxMakeWheelEvent(1, 0)));
    runFrames(3);
    EXPECT_LT(originX(), 0);
    EXPECT_GT(originX(), -48);
    runFrames(40);
    EXPECT_EQ(originX(), -48);
    EXPECT_FALSE(scrolling.isGliding());
    control.mouseWheel({50, 50}, uxMakeWheelEvent(100, 0));
    runFrames(80);
    EXPECT_EQ(originX(), -200); // the content's end

    control.mouseDown({10, 50}, UXEvent());
    for (int x = 13; x <= 61; x += 12) {
        control.mouseMove({x, 50}, UXEvent());
        runFrames(1);
    }
    EXPECT_EQ(originX(), -149);
    control.mouseUp({61, 50}, UXEvent());
    runFrames(2);
    const int gliding = originX();
    EXPECT_GT(gliding, -149);
    EXPECT_TRUE(control.mouseDown({10, 50}, UXEvent()));
    runFrames(5);
    EXPECT_EQ(originX(), gliding);
    control.mouseUp({10, 50}, UXEvent());

    // A glide goes with the control that it moves.
    control.mouseWheel({50, 50}, uxMakeWheelEvent(1, 0));
    auto other = std::make_unique<Control>();
    context.setActiveDiagram(other.get(), &diagram);
    other->setControlRect({0, 0, 200, 100});
    other->mouseWheel({50, 50}, uxMakeWheelEvent(1, 0));
    other.reset();
    runFrames(2);
    EXPECT_EQ(originX(), gliding);

    control.reduceMotion = true;
    control.setDiagramOriginInControlSpace({0, 0});
    control.mouseWheel({50, 50}, uxMakeWheelEvent(1, 0));
    EXPECT_EQ(originX(), -48);
}

TEST_F(UXControlInput, WhatStandsOnTheDiagramKeepsItsWheelItsDragAndItsClick)
{
    UXGlobalSmoothScrollingEventDiagram scrolling;
    diagram.registerGlobalEventDiagram(&scrolling);
    auto* view = new UXVirtualScrollView;
    diagram.addChild(view);
    view->setRect({100, 0, 60, 60});
    view->setContentHeight(1000);
    int clicks = 0;
    object->registerEventHandler(UXEventType::LeftClick, [&](const UXEvent&) { return ++clicks > 0; });
    object->registerEventResponder(UXEventResponderType::Drag, [&](const UXEvent&) { return clicks == 1; });

    control.mouseWheel({110, 10}, uxMakeWheelEvent(0, 1));
    EXPECT_EQ(view->getContentOffsetY(), 48);
    const auto drag = [&] {
        control.mouseDown({15, 15}, UXEvent());
        control.mouseMove({12, 15}, UXEvent());
        control.mouseMove({25, 15}, UXEvent());
        control.mouseUp({25, 15}, UXEvent());
    };
    control.setDiagramOriginInControlSpace({-10, 0});
    object->setRect({10, 10, 60, 20});
    drag(); // moves the diagram and is no click
    EXPECT_EQ(originX(), 0);
    EXPECT_EQ(clicks, 0);
    click(15, UXEvent());
    EXPECT_EQ(clicks, 1);
    control.setDiagramOriginInControlSpace({-10, 0});
    drag(); // the object takes this one itself
    EXPECT_EQ(originX(), -10);
    delete view;
}

TEST_F(UXControlInput, AUseCaseDiagramPaintsItsSourceAndFollowsIt)
{
    diagram.setBackgroundColor({255, 0, 0});
    UXUseCaseDiagram made(&context);
    context.addDiagram(&made);
    made.setRect({0, 0, 200, 100});
    made.setSourceDiagram(&diagram);
    made.setUseCaseZoomRatio(0.5);
    made.setUseCaseOrigin({7, 0});
    const std::string text = uxPaintToText(made);
    EXPECT_EQ(uxFindMissing(text, {"scale 0.5,0.5", "255,0,0"}), "") << text;

    made.clearDirtyRect();
    object->invalidate();
    EXPECT_FALSE(made.getDirtyRegion().isEmpty());
    context.setActiveDiagram(&control, &made);
    EXPECT_EQ(context.getCoordinateMap(&control, &diagram).toControlSpace({10, 0}).x, 12);
}
