#include "ux/ux_object.h"

#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_selectable_object.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

/** Writes what reaches it into a log, and answers what it is told to. */
class Listener : public UXObject {
public:
    std::string log;
    bool accepts = true;
    bool handles = false;
    bool stops = false;
    std::function<void()> whenHandling;

    bool isPressed() const { return getMousePressing(); }
    bool isHovered() const { return getMouseOvering(); }
    bool isDragged() const { return getMouseDragging(); }
    bool isDraggedOver() const { return getMouseDraggingOver(); }
    UXPoint obtainPoint(const UXEvent& event) const { return getTranslatedPointFromEvent(event); }

protected:
    bool shouldTriggerMouseDown(const UXEvent&) override { return accepts; }
    bool shouldTriggerKeyUp(const UXEvent&) override { return accepts; }
    bool customMouseDown(const UXEvent& event, bool& stop) override { return _act(event, stop); }
    bool customMouseDrop(const UXEvent& event, bool& stop) override { return _act(event, stop); }
    bool customMouseUp(const UXEvent& event, bool& stop) override
    {
        log += getMousePressing() ? "pressed " : "";
        return _act(event, stop);
    }
    bool customKeyUp(const UXEvent& event, bool& stop) override { return _act(event, stop); }

private:
    bool _act(const UXEvent& event, bool& stop)
    {
        log += std::to_string(static_cast<int>(event.getEventType())) + " ";
        stop = stops;
        const bool answer = handles;
        if (const auto act = whenHandling)
            act();
        return answer;
    }
};

UXEvent makeEvent(UXEventType type) { return UXEvent(type); }

} // namespace

TEST(UXObjectEvents, FilterThenHandlerThenRegistered)
{
    struct Case {
        const char* name;
        bool accepts, handles, stops, registeredHandles;
        const char* log;
        bool expected;
    };
    const Case cases[] = {
        {"nobody handles", true, false, false, false, "0 r1 r2 ", false},
        {"the handler does", true, true, false, false, "0 r1 r2 ", true},
        {"a registered one does", true, false, false, true, "0 r1 r2 ", true},
        {"stop ends it", true, true, true, true, "0 ", true},
        {"refused", false, true, false, true, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Listener object;
        object.accepts = c.accepts;
        object.handles = c.handles;
        object.stops = c.stops;
        object.registerEventHandler(UXEventType::MouseDown, [&](const UXEvent&) {
            object.log += "r1 ";
            return c.registeredHandles;
        });
        object.registerEventHandler(UXEventType::MouseUp, [&](const UXEvent&) {
            object.log += "wrong ";
            return true;
        });
        object.registerEventHandler(UXEventType::MouseDown, [&](const UXEvent&) {
            object.log += "r2 ";
            return false;
        });
        object.registerEventHandler(UXEventType::MouseDown, {});
        // What the event says it is gives way to what it is delivered as.
        EXPECT_EQ(object.mouseDown(makeEvent(UXEventType::MouseMove)), c.expected);
        EXPECT_EQ(object.log, c.log);
    }
}

TEST(UXObjectEvents, HandlersWithoutFiltersAndHooks)
{
    Listener object;
    object.handles = true;
    object.externalDrop(UXEvent());
    object.keyUp(UXEvent());
    EXPECT_EQ(object.log, "8 13 ");

    int clicks = 0;
    object.registerEventHandler(UXEventType::LeftClick, [&](const UXEvent&) { return ++clicks > 0; });
    EXPECT_TRUE(object.triggerEventHandler(makeEvent(UXEventType::LeftClick)));
    EXPECT_FALSE(object.triggerEventHandler(makeEvent(UXEventType::RightClick)));
    EXPECT_EQ(clicks, 1);
}

TEST(UXObjectEvents, CallbacksMayDestroyTheirObject)
{
    // Nothing here may touch the object once it is gone; a sanitizer build tells.
    auto* inHandler = new Listener;
    inHandler->handles = true;
    bool reached = false;
    inHandler->whenHandling = [=] { delete inHandler; };
    inHandler->registerEventHandler(UXEventType::MouseDown, [&](const UXEvent&) { return reached = true; });
    EXPECT_TRUE(inHandler->mouseDown(UXEvent()));
    EXPECT_FALSE(reached);

    auto* inRegistered = new Listener;
    inRegistered->registerEventHandler(UXEventType::MouseDown, [=](const UXEvent&) {
        delete inRegistered;
        return true;
    });
    inRegistered->registerEventHandler(UXEventType::MouseDown,
                                       [&](const UXEvent&) { return reached = true; });
    EXPECT_TRUE(inRegistered->mouseDown(UXEvent()));
    EXPECT_FALSE(reached);

    auto* inResponder = new Listener;
    inResponder->registerEventResponder(UXEventResponderType::Zoom, [=](const UXEvent&) {
        delete inResponder;
        return false;
    });
    inResponder->registerEventResponder(UXEventResponderType::Zoom,
                                        [&](const UXEvent&) { return reached = true; });
    EXPECT_FALSE(inResponder->triggerEventResponder(UXEventResponderType::Zoom, UXEvent()));
    EXPECT_FALSE(reached);
}

TEST(UXObjectEvents, HandlersRegisteredMeanwhileRunNextTime)
{
    UXObject object;
    int runs = 0;
    object.registerEventHandler(UXEventType::KeyDown, [&](const UXEvent&) {
        for (int i = 0; i < 100; ++i)
            object.registerEventHandler(UXEventType::KeyDown, [&](const UXEvent&) { return ++runs > 0; });
        return false;
    });
    object.keyDown(UXEvent());
    EXPECT_EQ(runs, 0);
    object.keyDown(UXEvent());
    EXPECT_EQ(runs, 100);
}

TEST(UXObjectEvents, PostedActionsWaitForTheOutermostDispatch)
{
    UXObject outer, inner;
    std::string log;
    inner.registerEventHandler(UXEventType::KeyDown, [&](const UXEvent& event) {
        event.postAction([&] { log += "inner "; });
        log += "in ";
        return true;
    });
    outer.registerEventHandler(UXEventType::MouseDown, [&](const UXEvent& event) {
        event.postAction([&] {
            log += "first ";
            inner.keyDown(UXEvent());
        });
        inner.keyDown(UXEvent());
        log += "out ";
        return true;
    });
    outer.mouseDown(UXEvent());
    EXPECT_EQ(log, "in out first in inner inner ");
}

TEST(UXObjectEvents, PostedActionsMayDestroyEventAndObject)
{
    auto* object = new UXObject;
    auto event = std::make_unique<UXEvent>();
    bool ran = false;
    object->registerEventHandler(UXEventType::MouseDown, [&](const UXEvent& posted) {
        posted.postAction([&] {
            delete object;
            event.reset();
        });
        posted.postAction([&] { ran = true; });
        return true;
    });
    EXPECT_TRUE(object->mouseDown(*event));
    EXPECT_TRUE(ran);
}

namespace {

class Counted : public UXSelectableObject {
public:
    int selections = 0;

protected:
    void selectionChanged() override { ++selections; }
};

} // namespace

TEST(UXSelectableObject, PointerAndProgramSelect)
{
    Counted object;
    object.setSelected(true, false);
    EXPECT_TRUE(object.getSelected());
    EXPECT_EQ(object.selections, 0);
    object.setSelected(true);
    EXPECT_EQ(object.selections, 0);

    object.mouseDown(UXEvent());
    object.mouseUp(UXEvent());
    EXPECT_FALSE(object.getSelected());
    EXPECT_EQ(object.selections, 1);
    object.mouseUp(UXEvent());
    EXPECT_FALSE(object.getSelected()) << "a release that began elsewhere is no click";
    object.mouseEnter(UXEvent());
    EXPECT_TRUE(object.getHighlighted());
    object.mouseLeave(UXEvent());
    EXPECT_FALSE(object.getHighlighted());

    auto* child = new UXSelectableObject;
    object.addChild(new UXObject);
    object.addChild(child);
    object.setSelectionToAllChildren(true);
    EXPECT_TRUE(child->getSelected());
    EXPECT_FALSE(object.getChild(0)->getSelected());
}

TEST(UXSelectableObject, ColoursFollowUntilTheyAreSet)
{
    UXSelectableObject object, other;
    object.setColor({100, 150, 200, 0.5});
    EXPECT_NE(object.getHighlightColor(), object.getColor());
    EXPECT_EQ(object.getHighlightColor().alpha, 0.5);
    object.setSelectedColor({1, 2, 3});
    object.setColor({9, 9, 9});
    EXPECT_EQ(object.getSelectedColor(), UXColor(1, 2, 3));
    EXPECT_EQ(object.obtainStateColor(), UXColor(9, 9, 9));
    object.setHighlighted(true);
    EXPECT_EQ(object.obtainStateColor(), object.getHighlightColor());
    object.setSelected(true);
    EXPECT_EQ(object.obtainStateColor(), UXColor(1, 2, 3));

    EXPECT_TRUE(other.deserialize(object.serialize()));
    EXPECT_EQ(other.getHighlightColor(), object.getHighlightColor());
    EXPECT_EQ(other.getSelectedColor(), UXColor(1, 2, 3));
    EXPECT_EQ(other.serialize(), object.serialize());
    EXPECT_FALSE(other.deserialize("{\"m_selectedColor\": 5}"));
    EXPECT_EQ(other.getSelectedColor(), UXColor(1, 2, 3));
}
