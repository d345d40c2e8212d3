#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_dirty_region.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_selectable_object.h"
#include "ux/ux_space.h"
#include "ux/ux_use_case_diagram.h"
#include "ux/ux_virtual_scroll_view.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

using Rects = std::vector<UXRect>;

TEST(UXDirtyRegion, MergesWhatTouchesOrWastesNothing)
{
    struct Case {
        const char* name;
        Rects added, expected;
    };
    const Case cases[] = {
        {"empty ones", {{5, 5, 0, 3}, {5, 5, 3, -1}}, {}},
        {"far apart", {{0, 0, 5, 5}, {90, 90, 5, 5}}, {{0, 0, 5, 5}, {90, 90, 5, 5}}},
        {"held", {{0, 0, 50, 50}, {10, 10, 5, 5}}, {{0, 0, 50, 50}}},
        {"overlapping", {{0, 0, 10, 10}, {5, 5, 10, 10}}, {{0, 0, 15, 15}}},
        {"side by side", {{0, 0, 10, 10}, {10, 0, 10, 10}}, {{0, 0, 20, 10}}},
        {"touching at a corner", {{0, 0, 10, 10}, {10, 10, 10, 10}}, {{0, 0, 10, 10}, {10, 10, 10, 10}}},
        {"a third joins two", {{0, 0, 10, 10}, {20, 0, 10, 10}, {5, 0, 20, 10}}, {{0, 0, 30, 10}}},
        {"the joined one reaches another",
         {{0, 0, 10, 10}, {100, 90, 10, 10}, {50, 95, 1, 1}, {5, 5, 100, 90}},
         {{0, 0, 110, 100}}},
        {"at the limits",
         {{INT_MIN, 0, INT_MAX, 1}, {INT_MAX - 5, 0, 5, 1}},
         {{INT_MIN, 0, INT_MAX, 1}, {INT_MAX - 5, 0, 5, 1}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXDirtyRegion region;
        for (const UXRect& rect : c.added)
            region.add(rect);
        EXPECT_EQ(region.getRects(), c.expected);
        EXPECT_EQ(region.isEmpty(), c.expected.empty());
    }
}

namespace {

class Painted : public UXObject {
public:
    Painted(std::string& log, const std::string& name, UXRect rect) : m_log(log)
    {
        setName(name);
        setRect(rect);
    }

    void paint(UXPaintConfig* config, UXRect dirtyRect) override
    {
        m_log += getName() + " ";
        // A child may destroy this object.
        const auto act = whenPainted;
        UXObject::paint(config, dirtyRect);
        if (act)
            act();
    }

    std::function<void()> whenPainted;

private:
    std::string& m_log;
};

class PaintingControl : public UXControl {
public:
    std::unique_ptr<UXRecordingPaintConfig> config = std::make_unique<UXRecordingPaintConfig>();
    UXPaintConfig* obtainPaintConfig(UXDiagram*) override { return config.get(); }
};

/** diagram > left (0,0,50,100) > leaf (10,10,5,5); diagram > right (50,0,50,100) */
struct Scene {
    std::string log;
    UXContext context;
    PaintingControl control;
    UXDiagram diagram{&context};
    Painted left{log, "left", {0, 0, 50, 100}};
    Painted leaf{log, "leaf", {10, 10, 5, 5}};
    Painted right{log, "right", {50, 0, 50, 100}};

    Scene()
    {
        diagram.setRect({0, 0, 100, 100});
        diagram.addChild(&left);
        diagram.addChild(&right);
        left.addChild(&leaf);
        context.setActiveDiagram(&control, &diagram);
        diagram.layout();
        clear();
    }
    ~Scene()
    {
        // Members own themselves, wherever a test has put them.
        for (UXObject* object : std::vector<UXObject*>{&left, &leaf, &right})
            object->setParent(nullptr);
    }

    void clear()
    {
        context.clearDirtyRect(&diagram);
        log.clear();
    }
};

} // namespace

TEST(UXDirtyRect, ReachesTheDiagramInItsSpace)
{
    struct Case {
        const char* name;
        void (*change)(Scene& s);
        Rects expected;
    };
    const UXRect leaf(10, 10, 5, 5);
    const Case cases[] = {
        {"nothing", [](Scene& s) { s.leaf.addDirtyRect(UXRect(0, 0, 0, 5)); }, {}},
        {"own area", [](Scene& s) { s.leaf.invalidate(); }, {leaf}},
        {"a part", [](Scene& s) { s.right.addDirtyRect(UXRect(1, 2, 3, 4)); }, {{51, 2, 3, 4}}},
        {"moved", [](Scene& s) { s.leaf.setRect(UXRect(30, 30, 5, 5)); }, {leaf, {30, 30, 5, 5}}},
        {"hidden", [](Scene& s) { s.leaf.setVisible(false); }, {leaf}},
        {"changed while hidden",
         [](Scene& s) {
             s.leaf.setVisible(false), s.diagram.clearDirtyRect();
             s.leaf.setColor(UXColor(1, 2, 3)), s.leaf.setRect(UXRect(1, 1, 1, 1));
         },
         {}},
        {"inside what is hidden",
         [](Scene& s) { s.left.setVisible(false), s.diagram.clearDirtyRect(), s.leaf.invalidate(); },
         {}},
        {"taken out", [](Scene& s) { s.left.removeChild(&s.leaf); }, {leaf}},
        {"put elsewhere", [](Scene& s) { s.right.addChild(&s.leaf); }, {leaf, {60, 10, 5, 5}}},
        {"brought to the front", [](Scene& s) { s.left.bringToFront(); }, {{0, 0, 50, 100}}},
        {"the same colour", [](Scene& s) { s.leaf.setColor(s.leaf.getColor()); }, {}},
        {"another colour", [](Scene& s) { s.leaf.setBackgroundColor(UXColor(1, 2, 3)); }, {leaf}},
        {"children", [](Scene& s) { s.diagram.invalidateChildren(); }, {{0, 0, 100, 100}}},
        {"layout and repaint", [](Scene& s) { s.leaf.setRequireToVerifyLayout(true, true); }, {leaf}},
        {"layout alone", [](Scene& s) { s.leaf.setRequireToVerifyLayout(true, false); }, {}},
        {"set by the context",
         [](Scene& s) { s.leaf.invalidate(), s.context.setDirtyRect(&s.diagram, UXRect(1, 1, 2, 2)); },
         {{1, 1, 2, 2}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Scene s;
        c.change(s);
        EXPECT_EQ(s.diagram.getDirtyRegion().getRects(), c.expected);
        EXPECT_TRUE(s.leaf.getDirtyRegion().isEmpty());
    }
}

TEST(UXDirtyRect, OnlyWhatMeetsTheDirtIsPainted)
{
    Scene s;
    s.right.addDirtyRect({0, 0, 1, 1});
    s.diagram.repaintDirtyRect();
    EXPECT_EQ(s.log, "right ");
    EXPECT_TRUE(s.diagram.getDirtyRegion().isEmpty());

    s.clear();
    s.context.repaintDirtyRect(&s.diagram);
    EXPECT_EQ(s.log, "") << "nothing is dirty";

    // Two corners are painted, and not all that lies between them.
    s.left.addDirtyRect({0, 90, 5, 5});
    s.right.addDirtyRect({45, 0, 5, 5});
    s.diagram.repaintDirtyRect();
    EXPECT_EQ(s.log, "left right ");

    s.clear();
    s.leaf.repaint();
    EXPECT_EQ(s.log, "left leaf ");
    s.clear();
    s.context.repaint();
    EXPECT_EQ(s.log, "left leaf right ");
    s.clear();
    s.left.setVisible(false);
    s.context.repaint(&s.diagram);
    EXPECT_EQ(s.log, "right ");
}

TEST(UXDirtyRect, WhatPaintingMakesDirtyWaitsForTheNextPass)
{
    Scene s;
    s.leaf.whenPainted = [&s] {
        s.leaf.whenPainted = nullptr;
        s.leaf.invalidate();
    };
    s.leaf.invalidate();
    s.diagram.repaintDirtyRect();
    EXPECT_EQ(s.context.getDirtyRect(&s.diagram), UXRect(10, 10, 5, 5));
    s.diagram.repaintDirtyRect();
    EXPECT_EQ(s.context.getDirtyRect(&s.diagram), UXRect());
    EXPECT_EQ(s.log, "left leaf left leaf ");
}

TEST(UXDirtyRect, PaintSurvivesWhatItsObjectsDo)
{
    const UXRect all(0, 0, 100, 100);
    std::string log;
    for (const bool parentDies : {false, true}) {
        auto* parent = new Painted(log, "parent", all);
        auto* first = new Painted(log, "first", all);
        UXObject* second = new Painted(log, "second", all);
        parent->addChild(first);
        parent->addChild(second);
        first->whenPainted = [=] { delete (parentDies ? parent : second); };
        const UXObjectWatcher watcher(parent);
        parent->paint(nullptr, all);
        EXPECT_EQ(watcher.isAlive(), !parentDies);
        delete watcher.getObject();
    }
    EXPECT_EQ(log, "parent first parent first ");
}

TEST(UXDirtyRect, WhatIsPaintedMayEndThePass)
{
    struct Host {
        std::unique_ptr<UXContext> context = std::make_unique<UXContext>();
        std::unique_ptr<UXDiagram> diagram = std::make_unique<UXDiagram>(context.get());
        std::unique_ptr<UXUseCaseDiagram> made = std::make_unique<UXUseCaseDiagram>(context.get());
        std::unique_ptr<PaintingControl> control = std::make_unique<PaintingControl>();
        std::unique_ptr<UXVirtualScrollView> view = std::make_unique<UXVirtualScrollView>();
    };
    struct Case {
        const char* name;
        void (*act)(Host& host);
        const char* seen; // of "first second" in a scroll view, which stands before "third"
    };
    const Case cases[] = {
        {"nothing", [](Host&) {}, "first second third "},
        {"the control and what it paints on", [](Host& h) { h.control.reset(); }, "first "},
        {"what it paints on alone", [](Host& h) { h.control->config.reset(); }, "first "},
        {"the context", [](Host& h) { h.context.reset(); }, "first second third "},
        {"the diagram", [](Host& h) { h.diagram.reset(); }, "first second "},
    };
    for (const bool isMade : {false, true}) {
        for (const Case& c : cases) {
            SCOPED_TRACE(std::string(c.name) + (isMade ? ", on a use-case diagram" : ""));
            std::string log;
            Host host;
            Painted first(log, "first", {0, 0, 50, 50}), second(log, "second", {0, 0, 50, 50}),
                third(log, "third", {0, 0, 50, 50});
            host.diagram->setRect({0, 0, 100, 100});
            host.made->setRect({0, 0, 100, 100});
            host.view->setRect({0, 0, 100, 100});
            host.diagram->addChild(host.view.get());
            host.diagram->addChild(&third);
            host.view->addChild(&first);
            host.view->addChild(&second);
            UXDiagram* shown = host.diagram.get();
            if (isMade) {
                host.made->setSourceDiagram(shown);
                shown = host.made.get();
            }
            host.context->setActiveDiagram(host.control.get(), shown);
            first.whenPainted = [&] { c.act(host); };
            shown->repaint();
            EXPECT_TRUE(isMade || log == c.seen) << log;
            for (UXObject* own : {&first, &second, &third})
                own->setParent(nullptr);
        }
    }
}

TEST(UXDirtyRect, ARepaintInsideAPassIsDoneOnceMoreAfterIt)
{
    Scene s;
    s.leaf.whenPainted = [&s] { s.leaf.repaint(); };
    s.leaf.repaint();
    EXPECT_EQ(s.log, "left leaf left leaf ");
    EXPECT_EQ(s.context.getDirtyRect(&s.diagram), UXRect(10, 10, 5, 5)) << "waits";
    s.log.clear();
    s.leaf.whenPainted = nullptr;
    s.diagram.repaintDirtyRect();
    EXPECT_EQ(s.log, "left leaf ");
}

TEST(UXDirtyRect, HostsMayDestroyWhatTellsThem)
{
    class DestroyingControl : public UXControl {
    public:
        UXObject* victim = nullptr;
        void notifyDirtyRect(UXDiagram*) override { delete std::exchange(victim, nullptr); }
    };
    const auto add = [](UXObject* parent, const UXRect& rect) {
        auto* made = new UXSelectableObject;
        made->setRect(rect);
        parent->addChild(made);
        return made;
    };
    UXSpace space;
    space.setXScale(2);
    const std::pair<const char*, std::function<void(UXObject*)>> cases[] = {
        {"moved", [](UXObject* o) { o->setRect(UXRect(20, 20, 5, 5)); }},
        {"hidden", [](UXObject* o) { o->setVisible(false); }},
        {"scaled", [&](UXObject* o) { o->setSpace(&space); }},
        {"padded", [](UXObject* o) { o->setPadding(UXPadding(1, 1, 1, 1)); }},
        {"removed", [](UXObject* o) { o->setParent(nullptr); }},
        {"read", [](UXObject* o) { o->deserialize(o->serialize()); }},
        {"given a child",
         [&](UXObject* o) {
             add(o, {0, 0, 5, 5});
         }},
    };
    for (const auto& [name, change] : cases) {
        for (const bool isParent : {false, true}) {
            SCOPED_TRACE(std::string(name) + (isParent ? ", its parent dies" : ", it dies itself"));
            UXContext context;
            DestroyingControl control;
            UXDiagram diagram(&context);
            diagram.setRect({0, 0, 100, 100});
            UXObject* parent = add(&diagram, {0, 0, 50, 50});
            UXObject* object = add(parent, {10, 10, 5, 5});
            context.setActiveDiagram(&control, &diagram);
            context.clearDirtyRect(&diagram);

            const UXObjectWatcher parentWatcher(parent), objectWatcher(object);
            control.victim = isParent ? parent : object;
            change(object);
            EXPECT_FALSE((isParent ? parentWatcher : objectWatcher).isAlive());
            delete objectWatcher.getObject();
            delete parentWatcher.getObject();
        }
    }
}
