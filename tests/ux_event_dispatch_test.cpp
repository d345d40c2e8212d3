#include "ux/ux_diagram.h"

#include "ux/ux_object_watcher.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

/** Writes what reaches it into a log shared by the tree, and lets the test act in every callback. */
class Probe : public UXObject {
public:
    Probe(const std::string& name, UXRect rect, std::string* log) : m_log(log)
    {
        setName(name);
        setRect(rect);
        for (const UXEventType click : {UXEventType::LeftClick, UXEventType::RightClick}) {
            registerEventHandler(click, [this](const UXEvent& event) {
                bool stop = false;
                return _act(event, stop);
            });
        }
    }

    bool handles = false;
    bool stops = false;
    bool accepts = true;
    bool forwards = false;
    std::function<void(const UXEvent&)> whenReached;

    bool isIdle() const { return !getMousePressing() && !getMouseDragging() && !getMouseDraggingOver(); }

protected:
    bool shouldForwardEventToNeighbors(const UXEvent&) override { return forwards; }
    bool shouldTriggerMouseDown(const UXEvent&) override { return accepts; }
    bool customMouseDown(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseMove(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseUp(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseEnter(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseLeave(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseDragging(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseDrop(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseDragEnter(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customMouseDragLeave(const UXEvent& e, bool& stop) override { return _act(e, stop); }
    bool customKeyDown(const UXEvent& e, bool& stop) override { return _act(e, stop); }

private:
    bool _act(const UXEvent& event, bool& stop)
    {
        static const char* const names[] = {"down",   "move",  "up",   "enter",  "leave", "wheel",
                                            "double", "drag",  "drop", "denter", "dover", "dleave",
                                            "key",    "keyup", "left", "right"};
        *m_log += getName() + "." + names[static_cast<int>(event.getEventType())] + " ";
        stop = stops;
        const bool answer = handles;
        if (const auto act = whenReached)
            act(event);
        return answer;
    }

    std::string* m_log;
};

/** back holds inner; front overlaps the right half of back. */
class UXEventDispatch : public testing::Test {
protected:
    UXEventDispatch()
    {
        diagram.setRect(uxMakeRect(0, 0, 100, 100));
        diagram.addChild(back);
        back->addChild(inner);
        diagram.addChild(front);
    }
    ~UXEventDispatch() override { diagram.clearChildren(); }

    static UXEvent at(int x, int y, UXEventKey key = UXEventKey::LeftButton)
    {
        UXEvent event;
        event.setMousePoint(uxMakePoint(x, y));
        event.addEventKey(key);
        return event;
    }
    std::string takeLog() { return std::exchange(log, {}); }

    std::string log;
    UXDiagram diagram;
    Probe* back = new Probe("back", uxMakeRect(0, 0, 80, 80), &log);
    Probe* inner = new Probe("inner", uxMakeRect(0, 0, 80, 40), &log);
    Probe* front = new Probe("front", uxMakeRect(40, 0, 40, 80), &log);
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
        diagram.mouseLeave(at(0, 0));
        diagram.mouseMove(at(c.x, 10));
        takeLog();
        diagram.mouseDown(at(c.x, 10));
        EXPECT_EQ(takeLog(), c.log);
        diagram.mouseUp(at(c.x, 10));
    }
}

TEST_F(UXEventDispatch, HoverEntersAndLeavesOnce)
{
    diagram.mouseMove(at(10, 10));
    EXPECT_EQ(takeLog(), "back.enter inner.enter inner.move back.move ");
    diagram.mouseMove(at(10, 60));
    EXPECT_EQ(takeLog(), "inner.leave back.move ");
    diagram.mouseMove(at(50, 60));
    EXPECT_EQ(takeLog(), "back.leave front.enter front.move ");
    diagram.mouseLeave(at(50, 60));
    EXPECT_EQ(takeLog(), "front.leave ");
}

TEST_F(UXEventDispatch, ClickIsDownAndUpOnOneObject)
{
    inner->handles = true;
    diagram.mouseMove(at(10, 10));
    takeLog();
    diagram.mouseDown(at(10, 10, UXEventKey::RightButton));
    diagram.mouseUp(at(12, 10, UXEventKey::RightButton));
    EXPECT_EQ(takeLog(), "inner.down inner.up inner.right ");
    diagram.mouseDown(at(10, 10));
    inner->whenReached = [&](const UXEvent&) { delete std::exchange(inner, nullptr); };
    diagram.mouseUp(at(10, 10));
    EXPECT_EQ(takeLog(), "inner.down inner.up ") << "gone before the click";
}

TEST_F(UXEventDispatch, PressCapturesAndDropsOnWhatLiesThere)
{
    inner->handles = true;
    diagram.mouseMove(at(10, 10));
    diagram.mouseDown(at(10, 10));
    takeLog();
    diagram.mouseMove(at(50, 60));
    EXPECT_EQ(takeLog(), "inner.drag front.denter ");
    diagram.mouseUp(at(50, 60));
    EXPECT_EQ(takeLog(), "inner.up front.drop front.dleave inner.leave back.leave front.enter ");
    EXPECT_TRUE(inner->isIdle() && back->isIdle() && front->isIdle());
    diagram.keyDown(UXEvent());
    EXPECT_EQ(takeLog(), "inner.key ") << "the press gave the focus";
    diagram.mouseDragOver(at(50, 60));
    diagram.mouseDrop(at(50, 60));
    EXPECT_EQ(takeLog(), "front.denter front.drop front.dleave ");

    diagram.mouseDown(at(10, 10));
    diagram.mouseMove(at(50, 60));
    UXObject* source = inner;
    front->whenReached = [&](const UXEvent& event) {
        delete std::exchange(inner, nullptr);
        source = event.getEventType() == UXEventType::MouseDragLeave ? event.getSourceObject() : source;
    };
    diagram.mouseUp(at(50, 60));
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
    diagram.mouseWheel(at(10, 10));
    diagram.setFocusedObject(inner);
    diagram.keyDown(UXEvent());
    EXPECT_EQ(takeLog(), "inner.key back.key inner.key back.key nested posted posted ");
}
