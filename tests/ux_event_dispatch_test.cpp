#include "ux/ux_diagram.h"
#include "ux/ux_global_event_diagram.h"
#include "ux_event_probe.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace {

/** back holds inner; front overlaps the right half of back. */
class UXEventDispatch : public testing::Test {
protected:
    UXEventDispatch()
    {
        diagram.setRect({0, 0, 100, 100});
        diagram.addChild(back);
        back->addChild(inner);
        diagram.addChild(front);
        back->setRect({0, 0, 80, 80});
        inner->setRect({0, 0, 80, 40});
        front->setRect({40, 0, 40, 80});
    }
    ~UXEventDispatch() override { diagram.clearChildren(); }

    std::string takeLog() { return std::exchange(log, {}); }

    std::string log;
    UXDiagram diagram;
    UXEventProbe* back = new UXEventProbe("back", &log);
    UXEventProbe* inner = new UXEventProbe("inner", &log);
    UXEventProbe* front = new UXEventProbe("front", &log);
};

} // namespace

TEST_F(UXEventDispatch, DeepestFirstUntilHandled)
{
    struct Case {
        const char* name;
        int x;
        std::function<void()> prepare;
        const char* log;
    };
    const Case cases[] = {
        {"all the way up", 10, [] {}, "inner.down back.down "},
        {"the one in front", 50, [] {}, "front.down "},
        {"forwarded", 50, [&] { front->forwards = true; }, "front.down inner.down back.down "},
        {"handled behind", 50, [&] { inner->handles = true; }, "front.down inner.down "},
        {"handled", 10, [] {}, "inner.down "},
        {"refused", 10, [&] { inner->accepts = false; }, "back.down "},
        {"stopped", 50, [&] { front->stops = true; }, "front.down "},
        {"hidden", 50, [&] { front->setVisible(false); }, "back.down "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.prepare();
        diagram.mouseLeave(uxMakeEventAt(0, 0));
        diagram.mouseMove(uxMakeEventAt(c.x, 10));
        takeLog();
        diagram.mouseDown(uxMakeEventAt(c.x, 10));
        EXPECT_EQ(takeLog(), c.log);
        diagram.mouseUp(uxMakeEventAt(c.x, 10));
    }
}

TEST_F(UXEventDispatch, AnEventReachesWhatMovesBetweenDiagramsOnce)
{
    UXGlobalEventDiagram above;
    above.setRect({0, 0, 100, 100});
    diagram.registerGlobalEventDiagram(&above);
    auto* mover = new UXEventProbe("mover", &log);
    mover->setRect({0, 0, 100, 100});
    above.addChild(mover);
    mover->whenReached = [&](const UXEvent&) { diagram.addChild(mover); };
    const UXEvent event = uxMakeEventAt(10, 10);
    diagram.mouseDown(event);
    EXPECT_EQ(takeLog(), "mover.enter mover.down ") << "the enter has moved it, where it meets the press";
    diagram.cancelPress();
    diagram.mouseDown(event);
    EXPECT_EQ(takeLog(), "mover.down ") << "the same event sent again is another one";
}

TEST_F(UXEventDispatch, ForwardsWithoutGoingDeeperIntoTheStack)
{
    std::set<std::uintptr_t> depths;
    for (int i = 0; i < 100; ++i) {
        auto* object = new UXEventProbe(std::to_string(i), &log);
        object->setRect({0, 0, 50, 50});
        object->forwards = true;
        object->handles = i == 50;
        object->stops = i == 98;
        object->whenReached = [&](const UXEvent&) {
            const char here = 0;
            depths.insert(reinterpret_cast<std::uintptr_t>(&here));
        };
        diagram.addChild(object, 0);
    }
    back->setVisible(false);
    EXPECT_TRUE(diagram.mouseWheel(uxMakeEventAt(10, 10))) << "by the one in the middle";
    EXPECT_TRUE(log.starts_with("0.wheel 1.wheel ") && log.ends_with("97.wheel 98.wheel ")) << log;
    EXPECT_EQ(depths.size(), 1u);
}

TEST_F(UXEventDispatch, HoverEntersAndLeavesOnce)
{
    diagram.mouseMove(uxMakeEventAt(10, 10));
    EXPECT_EQ(takeLog(), "back.enter inner.enter inner.move back.move ");
    diagram.mouseMove(uxMakeEventAt(10, 60));
    EXPECT_EQ(takeLog(), "inner.leave back.move ");
    diagram.mouseMove(uxMakeEventAt(50, 60));
    EXPECT_EQ(takeLog(), "back.leave front.enter front.move ");
    diagram.mouseLeave(uxMakeEventAt(50, 60));
    EXPECT_EQ(takeLog(), "front.leave ");
}

TEST_F(UXEventDispatch, ClickIsDownAndUpOnOneObject)
{
    inner->handles = true;
    for (const UXEventType type : {UXEventType::LeftClick, UXEventType::RightClick})
        inner->registerEventHandler(type, [&](const UXEvent& event) {
            log += event.getEventType() == UXEventType::LeftClick ? "left " : "right ";
            return true;
        });
    diagram.mouseMove(uxMakeEventAt(10, 10));
    takeLog();
    diagram.mouseDown(uxMakeEventAt(10, 10, UXEventKey::RightButton));
    diagram.mouseUp(uxMakeEventAt(12, 10, UXEventKey::RightButton));
    EXPECT_EQ(takeLog(), "inner.down inner.up right ");
    for (const bool refusesPress : {true, false}) {
        inner->accepts = !refusesPress;
        diagram.mouseDown(uxMakeEventAt(10, 10));
        inner->accepts = true;
        inner->acceptsRelease = refusesPress;
        diagram.mouseUp(uxMakeEventAt(10, 10));
        EXPECT_EQ(takeLog(), refusesPress ? "back.down inner.up " : "inner.down back.up ")
            << "who refused the one or the other is not clicked";
        inner->acceptsRelease = true;
    }
    diagram.mouseDown(uxMakeEventAt(10, 10));
    inner->whenReached = [&](const UXEvent&) { delete std::exchange(inner, nullptr); };
    diagram.mouseUp(uxMakeEventAt(10, 10));
    EXPECT_EQ(takeLog(), "inner.down inner.up ") << "gone before the click";
}

TEST_F(UXEventDispatch, PressCapturesAndDropsOnWhatLiesThere)
{
    inner->handles = true;
    diagram.mouseMove(uxMakeEventAt(10, 10));
    diagram.mouseDown(uxMakeEventAt(10, 10));
    takeLog();
    diagram.mouseMove(uxMakeEventAt(50, 60));
    EXPECT_EQ(takeLog(), "inner.drag front.denter front.dover ");
    diagram.mouseUp(uxMakeEventAt(50, 60));
    EXPECT_EQ(takeLog(), "inner.up front.drop front.dleave inner.leave back.leave front.enter ");
    EXPECT_FALSE(inner->hasPointerState() || back->hasPointerState());
    diagram.keyDown(UXEvent());
    EXPECT_EQ(takeLog(), "inner.key ") << "the press gave the focus";
    diagram.mouseDragOver(uxMakeEventAt(50, 60));
    diagram.mouseDrop(uxMakeEventAt(50, 60));
    EXPECT_EQ(takeLog(), "front.denter front.dover front.drop front.dleave ");

    diagram.mouseDown(uxMakeEventAt(10, 10));
    diagram.mouseMove(uxMakeEventAt(50, 60));
    UXObject* source = inner;
    front->whenReached = [&](const UXEvent& event) {
        delete std::exchange(inner, nullptr);
        source = event.getEventType() == UXEventType::MouseDragLeave ? event.getSourceObject() : source;
    };
    diagram.mouseUp(uxMakeEventAt(50, 60));
    EXPECT_EQ(source, nullptr) << "what was dragged is gone";
}

TEST_F(UXEventDispatch, PostedActionsRunAfterTheOutermost)
{
    inner->whenReached = [&](const UXEvent& event) { event.postAction([&] { log += "posted "; }); };
    back->whenReached = [&](const UXEvent&) {
        back->whenReached = {};
        diagram.keyDown(UXEvent());
        log += "nested ";
    };
    diagram.setFocusedObject(inner);
    diagram.keyDown(UXEvent());
    EXPECT_EQ(takeLog(), "inner.key back.key inner.key back.key nested posted posted ");

    diagram.mouseDown(uxMakeEventAt(10, 60));
    diagram.mouseMove(uxMakeEventAt(50, 10));
    takeLog();
    front->whenReached = inner->whenReached;
    diagram.cancelPress();
    EXPECT_EQ(takeLog(), "front.dleave posted ");
}
