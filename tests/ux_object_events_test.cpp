#include "ux/ux_object.h"

#include "ux/ux_selectable_object.h"
#include "ux_event_probe.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

TEST(UXObjectEvents, FilterThenHandlerThenRegistered)
{
    struct Case {
        const char* name;
        bool accepts, handles, stops, registeredHandles;
        const char* log;
        bool expected;
    };
    const Case cases[] = {
        {"nobody handles", true, false, false, false, "it.down r1 r2 ", false},
        {"the handler does", true, true, false, false, "it.down r1 r2 ", true},
        {"a registered one does", true, false, false, true, "it.down r1 r2 ", true},
        {"stop ends it", true, true, true, true, "it.down ", true},
        {"refused", false, true, false, true, "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string log;
        UXEventProbe object("it", &log);
        object.accepts = c.accepts, object.handles = c.handles, object.stops = c.stops;
        const auto answer = [&](const char* name, bool handled) {
            return [&log, name, handled](const UXEvent&) { return log += name, handled; };
        };
        object.registerEventHandler(UXEventType::MouseDown, answer("r1 ", c.registeredHandles));
        object.registerEventHandler(UXEventType::MouseUp, answer("wrong ", true));
        object.registerEventHandler(UXEventType::MouseDown, answer("r2 ", false));
        object.registerEventHandler(UXEventType::MouseDown, {});
        // What the event says it is gives way to what it is delivered as.
        EXPECT_EQ(object.mouseDown(UXEvent(UXEventType::MouseMove)), c.expected);
        EXPECT_EQ(log, c.log);
    }
}

TEST(UXObjectEvents, WhatIsDroppedFromOutsideArrivesAsADrop)
{
    std::string log;
    UXEventProbe object("it", &log);
    object.externalDrop(UXEvent());
    object.keyUp(UXEvent());
    EXPECT_EQ(log, "it.drop it.keyup ");
}

TEST(UXObjectEvents, CallbacksMayDestroyTheirObject)
{
    // Nothing may touch the object once it is gone; a sanitizer build tells.
    for (const char* way : {"handler", "registered handler", "responder"}) {
        SCOPED_TRACE(way);
        auto* object = new UXEventProbe;
        bool reached = false;
        const auto destroy = [=](const UXEvent&) { return delete object, false; };
        const auto reach = [&](const UXEvent&) { return reached = true; };
        if (way[0] == 'h')
            object->whenReached = destroy;
        else
            object->registerEventHandler(UXEventType::MouseDown, destroy);
        object->registerEventHandler(UXEventType::MouseDown, reach);
        object->registerEventResponder(UXEventResponderType::Zoom, destroy);
        object->registerEventResponder(UXEventResponderType::Zoom, reach);
        EXPECT_FALSE(std::string(way) == "responder"
                         ? object->triggerEventResponder(UXEventResponderType::Zoom, UXEvent())
                         : object->mouseDown(UXEvent()));
        EXPECT_FALSE(reached);
    }
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

TEST(UXObjectEvents, PostedActionsWaitForTheOutermostDispatchAndMayDestroyEventAndObject)
{
    auto* outer = new UXObject;
    auto event = std::make_unique<UXEvent>();
    UXObject inner;
    std::string log;
    inner.registerEventHandler(UXEventType::KeyDown, [&](const UXEvent& posted) {
        posted.postAction([&] { log += "inner "; });
        return log += "in ", true;
    });
    outer->registerEventHandler(UXEventType::MouseDown, [&](const UXEvent& posted) {
        posted.postAction([&] {
            delete outer;
            event.reset();
            log += "first ";
            inner.keyDown(UXEvent());
        });
        inner.keyDown(UXEvent());
        return log += "out ", true;
    });
    EXPECT_TRUE(outer->mouseDown(*event));
    EXPECT_EQ(log, "in out first in inner inner ");
}

TEST(UXSelectableObject, PointerAndProgramSelect)
{
    class Counted : public UXSelectableObject {
    public:
        int selections = 0;
        void selectionChanged() override { ++selections; }
    } object;
    object.setSelected(true, false);
    object.setSelected(true);
    EXPECT_TRUE(object.getSelected());
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
    EXPECT_EQ(object.obtainStateColor(), UXColor(9, 9, 9));
    object.setHighlighted(true);
    EXPECT_EQ(object.obtainStateColor(), object.getHighlightColor());
    object.setSelected(true);
    EXPECT_EQ(object.obtainStateColor(), UXColor(1, 2, 3));

    EXPECT_TRUE(other.deserialize(object.serialize()));
    EXPECT_EQ(other.getHighlightColor(), object.getHighlightColor());
    EXPECT_EQ(other.serialize(), object.serialize());
    EXPECT_FALSE(other.deserialize("{\"m_selectedColor\": 5}"));
    EXPECT_EQ(other.getSelectedColor(), UXColor(1, 2, 3));
}
