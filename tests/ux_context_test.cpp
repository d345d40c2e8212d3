#include "ux/ux_context.h"

#include "ux/ux_control.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_selectable_object.h"
#include "ux/ux_timer.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

TEST(UXContext, WhatIsDestroyedLeaves)
{
    auto context = std::make_unique<UXContext>();
    auto first = std::make_unique<UXDiagram>(context.get());
    UXDiagram second, late(context.get());
    auto host = std::make_unique<UXControl>();
    UXControl kept;
    context->setActiveDiagram(host.get(), first.get());
    context->setActiveDiagram(&kept, first.get());
    context->addDiagram(&second, 0);
    EXPECT_EQ(context->getDiagrams(), std::vector<UXDiagram*>({&second, first.get()}));
    context->addDiagram(&second, 99);
    EXPECT_EQ(context->getDiagrams(), std::vector<UXDiagram*>({first.get(), &second}));

    first.reset();
    EXPECT_EQ(kept.getActiveDiagram(), nullptr);
    host.reset();
    EXPECT_EQ(context->getControls(), std::vector<UXControl*>({&kept}));
    UXContext other;
    other.setActiveDiagram(&kept, &second);
    EXPECT_TRUE(context->getControls().empty());
    EXPECT_EQ(second.getContext(), &other);
    EXPECT_TRUE(context->getDiagrams().empty());
    context.reset();
    EXPECT_EQ(late.getContext(), nullptr);
    late.setRect({0, 0, 5, 5});
    late.repaint();
}

TEST(UXContext, ADiagramThatIsLeftKeepsNeitherHoverNorPress)
{
    struct Screen {
        std::unique_ptr<UXContext> context = std::make_unique<UXContext>();
        UXContext otherContext;
        UXDiagram diagram, other;
        UXGlobalEventDiagram above;
        std::unique_ptr<UXControl> host = std::make_unique<UXControl>(),
                                   second = std::make_unique<UXControl>();
        UXSelectableObject object, aboveObject;
    };
    struct Case {
        const char* name;
        void (*leave)(Screen& s);
        bool isLeft;
    };
    const Case cases[] = {
        {"shows another", [](Screen& s) { s.context->setActiveDiagram(s.host.get(), &s.other); }, true},
        {"shows none", [](Screen& s) { s.context->setActiveDiagram(s.host.get(), nullptr); }, true},
        {"moves", [](Screen& s) { s.otherContext.addControl(s.host.get()); }, true},
        {"is destroyed", [](Screen& s) { s.host.reset(); }, true},
        {"the diagram moves", [](Screen& s) { s.otherContext.addDiagram(&s.diagram); }, true},
        {"the context goes", [](Screen& s) { s.context.reset(); }, true},
        {"a control without the pointer",
         [](Screen& s) { s.context->setActiveDiagram(s.second.get(), &s.other); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Screen s;
        s.diagram.setRect({0, 0, 100, 100});
        s.diagram.addChild(&s.object);
        s.above.setRect({0, 0, 100, 100});
        s.above.addChild(&s.aboveObject);
        s.diagram.registerGlobalEventDiagram(&s.above);
        for (UXObject* object : {&s.object, &s.aboveObject})
            object->setRect({0, 0, 50, 50});
        s.context->setActiveDiagram(s.host.get(), &s.diagram);
        s.context->setActiveDiagram(s.second.get(), &s.diagram);
        s.host->mouseMove({10, 10}, UXEvent());
        s.host->mouseDown({10, 10}, UXEvent());
        EXPECT_TRUE(s.object.getHighlighted() || s.aboveObject.getHighlighted());
        c.leave(s);
        EXPECT_EQ(s.object.getHighlighted() || s.aboveObject.getHighlighted(), !c.isLeft);
        UXEvent release;
        release.setMousePoint({10, 10});
        s.diagram.mouseUp(release);
        EXPECT_EQ(s.object.getSelected() || s.aboveObject.getSelected(), !c.isLeft) << "no click comes of it";
    }
}

TEST(UXControl, StopsWhatItsLeaveEventsStart)
{
    UXContext context;
    UXDiagram diagram(&context);
    UXObject object;
    diagram.setRect({0, 0, 100, 100});
    diagram.addChild(&object);
    object.setRect({0, 0, 50, 50});
    auto control = std::make_unique<UXControl>();
    context.setActiveDiagram(control.get(), &diagram);
    UXTimer timer([] {});
    bool hasLeft = false;
    object.registerEventHandler(UXEventType::MouseLeave, [&, dying = control.get()](const UXEvent&) {
        hasLeft = true;
        timer.start(dying, 10);
        return false;
    });
    control->mouseMove({10, 10}, UXEvent());
    control.reset();
    EXPECT_TRUE(hasLeft);
    EXPECT_FALSE(timer.isRunning());
}

TEST(UXContext, TimersSayWhenTheyAreDue)
{
    UXControl control;
    EXPECT_EQ(control.obtainNextTimer(0), std::nullopt);
    control.postAction([] {});
    EXPECT_EQ(control.obtainNextTimer(0), 0);
    control.timer(0);
    UXTimer slow([] {}), fast([] {});
    slow.start(&control, 500, UXTimer::Mode::Once);
    EXPECT_EQ(control.obtainNextTimer(0), 0) << "it has yet to begin to count";
    control.timer(1000);
    fast.start(&control, 16);
    control.timer(1100);
    const struct {
        std::int64_t now, rest;
    } cases[] = {{1100, 16}, {1110, 6}, {1116, 0}, {2000, 0}, {900, 16}};
    for (const auto& [now, rest] : cases)
        EXPECT_EQ(control.obtainNextTimer(now), rest) << now;
    fast.stop();
    EXPECT_EQ(control.obtainNextTimer(1100), 400);
    control.timer(1500);
    EXPECT_EQ(control.obtainNextTimer(1500), std::nullopt) << "once is over";
}

TEST(UXContext, PostedActionsRunAfterTheEvent)
{
    UXContext context;
    UXDiagram diagram(&context), unseen(&context);
    auto host = std::make_unique<UXControl>();
    context.setActiveDiagram(host.get(), &diagram);
    std::string log;

    context.postAction(host.get(), [&] { log += "kept "; });
    context.postAction(host.get(), {});
    EXPECT_EQ(log, "");
    host->timer(0);
    EXPECT_EQ(log, "kept ");

    UXObject object;
    object.registerEventHandler(UXEventType::MouseDown, [&](const UXEvent&) {
        context.postAction(&unseen, [&] { log += "unseen "; });
        context.postAction(&diagram, [&] {
            log += "posted ";
            context.postAction(&diagram, [&] { log += "again "; });
        });
        log += "event ";
        return true;
    });
    object.mouseDown(UXEvent());
    EXPECT_EQ(log, "kept event unseen posted again ");

    // An action may destroy the control; those after it are gone with it.
    host->postAction([&] { host.reset(); });
    host->postAction([&] { log += "wrong "; });
    host->runPostedActions();
    EXPECT_EQ(host, nullptr);
    EXPECT_EQ(log, "kept event unseen posted again ");
}

TEST(UXControl, Conversions)
{
    UXControl control;
    control.setScalingFactor(2);
    control.setZoomRatio(1.5);
    control.setDiagramDoubleOriginInControlSpace({10, -20.5});
    EXPECT_EQ(control.getZoomRatioWithScalingFactor(), 3);
    EXPECT_EQ(control.diagramSpaceToControlSpace(UXPoint(5, 5)), UXControlPoint(25, -5));
    EXPECT_EQ(control.controlSpaceToDiagramSpace(UXControlPoint(25, -5)), UXPoint(5, 5));
    EXPECT_EQ(control.diagramSpaceToControlSpace(UXDoublePoint(0.5, 1)), UXDoubleControlPoint(11.5, -17.5));
    EXPECT_EQ(control.diagramSpaceToControlSpace(UXRect(1, 1, 2, 2)), UXControlRect(13, -18, 6, 7));
    EXPECT_EQ(control.controlSpaceToDiagramSpace(UXControlRect(13, -17, 1, 1)), UXRect(1, 1, 1, 1));
    EXPECT_EQ(control.controlSpaceToDiagramSpace(UXControlDimension(6)), 2);
    EXPECT_EQ(control.diagramSpaceToControlSpace(2.0), UXControlDimension(6));
    EXPECT_EQ(control.getDiagramOrigin(), UXPoint(3, -7));
    EXPECT_EQ(control.getDiagramOriginInControlSpace(), UXControlPoint(10, -20));
    EXPECT_EQ(control.diagramSpaceToControlSpace(UXPoint(INT_MAX, INT_MIN)),
              UXControlPoint(INT_MAX, INT_MIN));

    control.setDiagramDoubleOriginInControlSpace({NAN, 0});
    control.setScalingFactor(0);
    control.setZoomRatio(INFINITY);
    EXPECT_EQ(control.getDiagramDoubleOriginInControlSpace(), UXDoubleControlPoint(10, -20.5));
    EXPECT_EQ(control.getZoomRatioWithScalingFactor(), 3);
}

TEST(UXControl, ADiagramKnowsThePixelsThatShowIt)
{
    UXContext context;
    UXDiagram diagram(&context);
    UXObject part;
    diagram.addChild(&part);
    part.setRect({3, 4, 10, 10});
    UXControl control;
    context.setActiveDiagram(&control, &diagram);
    const std::function<void()> same[] = {
        [&] {
            control.setDiagramOriginInControlSpace({7, -2});
        },
        [&] {
            control.setDiagramDoubleOriginInControlSpace({7.3, 0});
        },
        [&] { diagram.setDeviceTransform(UXTransform{}.translated(7, 0)); },
    };
    for (const auto& change : same) {
        diagram.layout();
        change();
        EXPECT_FALSE(part.getRequireToVerifyLayout()) << "no pixel lies elsewhere";
    }
    const std::function<void()> others[] = {
        [&] { control.setZoomRatio(1.5); },
        [&] { control.setScalingFactor(2); },
        [&] { diagram.setDeviceTransform(UXTransform{}.translated(0.5, 0).scaled(3, 3)); },
    };
    for (const auto& change : others) {
        diagram.layout();
        change();
        EXPECT_TRUE(part.getRequireToVerifyLayout());
    }
    EXPECT_EQ(uxObtainDeviceTransform(part), UXTransform{}.translated(0.5, 0).scaled(3, 3).translated(3, 4));
    diagram.removeChild(&part);
    EXPECT_EQ(uxObtainDeviceTransform(part).xx, 1) << "without a diagram a unit is a pixel";
}
