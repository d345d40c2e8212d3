#include "ux/ux_assert.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace {

class Laid : public UXObject {
public:
    int layouts = 0;
    int marks = 0;
    std::function<void()> whenLaidOut;

protected:
    void requireLayoutMarked() override { ++marks; }
    void customLayout() override
    {
        ++layouts;
        UXObject::customLayout();
        if (const auto act = whenLaidOut)
            act();
    }
};

/** root > parent > child, all laid out. */
struct Tree {
    Laid root;
    Laid* parent = new Laid;
    Laid* child = new Laid;

    Tree()
    {
        root.addChild(parent);
        parent->addChild(child);
        root.layout();
        for (Laid* object : {&root, parent, child})
            object->layouts = object->marks = 0;
    }

    std::string count()
    {
        return std::to_string(root.layouts) + std::to_string(parent->layouts) +
               std::to_string(child->layouts);
    }
};

} // namespace

TEST(UXLayout, MarksAndPasses)
{
    struct Case {
        const char* name;
        void (*change)(Tree& t);
        const char* expected; // passes of root, parent and child
    };
    const Case cases[] = {
        {"nothing", [](Tree&) {}, "000"},
        {"required", [](Tree& t) { t.child->requireLayout(); }, "001"},
        {"verified", [](Tree& t) { t.parent->setRequireToVerifyLayout(true); }, "010"},
        {"taken back", [](Tree& t) { t.child->requireLayout(), t.child->setRequireToVerifyLayout(false); },
         "000"},
        {"resized", [](Tree& t) { t.child->setRect(UXRect(0, 0, 5, 5)); }, "111"},
        {"moved", [](Tree& t) { t.child->setRect(UXRect(5, 5, 0, 0)); }, "001"},
        {"same rectangle", [](Tree& t) { t.child->setRect(t.child->getRect()); }, "000"},
        {"padding", [](Tree& t) { t.parent->setPadding(UXPadding(1, 1, 1, 1)); }, "010"},
        {"alignment", [](Tree& t) { t.child->setAlign(UXAlign::Client); }, "010"},
        {"child added", [](Tree& t) { t.parent->addChild(new Laid); }, "010"},
        {"child destroyed", [](Tree& t) { delete t.child, t.child = new Laid; }, "010"},
        {"hidden", [](Tree& t) { t.parent->setVisible(false), t.child->requireLayout(); }, "000"},
        {"hidden and shown",
         [](Tree& t) {
             t.parent->setVisible(false), t.child->requireLayout(), t.root.layout();
             t.parent->setVisible(true);
         },
         "001"},
        {"marked before it was added",
         [](Tree& t) {
             t.parent->removeChild(t.child), t.root.layout(), t.parent->layouts = 0;
             t.child->requireLayout(), t.root.addChild(t.child);
         },
         "101"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Tree t;
        c.change(t);
        t.root.layout();
        EXPECT_EQ(t.count(), c.expected);
        t.root.layout();
        EXPECT_EQ(t.count(), c.expected) << "a second pass finds nothing to do";
        if (!t.child->getParent())
            delete t.child;
    }
}

TEST(UXLayout, APassDoesNotAskForAnother)
{
    Tree t;
    t.parent->whenLaidOut = [&] {
        t.child->setRect({0, 0, t.child->getRect().width + 1, 3});
        t.parent->requireLayout();
        t.parent->layout();
    };
    t.parent->requireLayout();
    t.root.layout();
    EXPECT_EQ(t.count(), "011");
    EXPECT_FALSE(t.parent->getRequireToVerifyLayout());
    t.root.layout();
    EXPECT_EQ(t.count(), "011");
}

TEST(UXLayout, CallbacksMayDestroyWhatIsLaidOut)
{
    Tree t;
    auto* neighbour = new Laid;
    t.root.addChild(neighbour);
    t.child->whenLaidOut = [&] { delete t.parent; };
    t.child->requireLayout();
    t.root.layout();
    EXPECT_EQ(t.root.getChildrenCount(), 1u);
    EXPECT_EQ(neighbour->layouts, 1) << "what goes does not hide its neighbour";

    auto* own = new Laid;
    own->whenLaidOut = [&] { delete own; };
    const UXObjectWatcher watcher(own);
    own->layout();
    EXPECT_FALSE(watcher.isAlive());
}

TEST(UXLayout, Batches)
{
    Tree t;
    t.root.beginUpdate();
    t.child->beginUpdate();
    t.child->beginUpdate();
    EXPECT_TRUE(t.parent->isUpdating());
    t.child->requireLayout();
    t.child->layout();
    t.child->endUpdate();
    t.child->endUpdate();
    EXPECT_TRUE(t.child->isUpdating()) << "a parent's batch counts";
    t.parent->layout();
    EXPECT_EQ(t.count(), "000");
    t.root.endUpdate();
    EXPECT_FALSE(t.child->isUpdating());
    EXPECT_EQ(t.count(), "001") << "done once, at the end";

    t.root.beginUpdate();
    t.parent->requireLayout();
    t.root.endUpdate();
    EXPECT_EQ(t.count(), "001") << "nobody asked for a pass";

    int asserts = 0;
    uxSetAssertHandler([&](std::source_location) { ++asserts; });
    t.root.endUpdate();
    uxSetAssertHandler({});
    EXPECT_EQ(asserts, 1);
    EXPECT_FALSE(t.root.isUpdating());
}

TEST(UXLayout, PassesFromTheRootComeBackToWhatWaitsForItsFrame)
{
    Tree t;
    t.parent->beginLayoutWithFPSControl();
    for (int i = 0; i < 2; ++i) {
        t.parent->requireLayout();
        t.root.layout();
    }
    // A frame later, whether the second pass was held back or not.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    t.root.layout();
    EXPECT_EQ(t.parent->layouts, 2);
    t.parent->endLayoutWithFPSControl();
    EXPECT_EQ(t.parent->layouts, 2);
}
