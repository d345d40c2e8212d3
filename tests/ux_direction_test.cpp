#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_direction.h"
#include "ux_event_probe.h"
#include "ux_paint_to_text.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using enum UXDirection;

/** On a diagram of 200 x 100 an outer object at (20, 10) of 100 x 50, in it one at (5, 5) of 30 x 20. */
struct Tree {
    UXDiagram diagram;
    UXEventProbe outer{"outer"}, inner{"inner"};

    Tree(UXDirection diagramDirection, UXDirection outerDirection, UXDirection innerDirection)
    {
        diagram.setRect({0, 0, 200, 100});
        diagram.addChild(&outer);
        outer.setRect({20, 10, 100, 50});
        outer.addChild(&inner);
        inner.setRect({5, 5, 30, 20});
        diagram.setDirection(diagramDirection);
        outer.setDirection(outerDirection);
        inner.setDirection(innerDirection);
    }
};

} // namespace

TEST(UXDirection, MirrorsInsideOfWhatRunsTheOtherWay)
{
    struct Case {
        const char* name;
        UXDirection diagram, outer, inner;
        UXRect expected;       // the inner object's left upper part of 10 x 20, on the diagram
        UXPoint expectedPoint; // its unit (0, 0)
    };
    const Case cases[] = {
        {"nobody says", AsParent, AsParent, AsParent, {25, 15, 10, 20}, {25, 15}},
        {"outside", AsParent, RightToLeft, AsParent, {105, 15, 10, 20}, {114, 15}},
        {"as around", AsParent, RightToLeft, RightToLeft, {105, 15, 10, 20}, {114, 15}},
        {"back inside", AsParent, RightToLeft, LeftToRight, {85, 15, 10, 20}, {85, 15}},
        {"inside alone", AsParent, AsParent, RightToLeft, {45, 15, 10, 20}, {54, 15}},
        {"all that stands on the diagram", RightToLeft, AsParent, AsParent, {105, 15, 10, 20}, {114, 15}},
        {"all but one", RightToLeft, LeftToRight, AsParent, {25, 15, 10, 20}, {25, 15}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Tree tree(c.diagram, c.outer, c.inner);
        const UXRect part{0, 0, 10, 20};
        EXPECT_EQ(tree.inner.translateRectToParent(part, nullptr), c.expected);
        EXPECT_EQ(tree.diagram.translateRectToChild(c.expected, &tree.inner), part);
        EXPECT_EQ(tree.inner.translatePointToParent({0, 0}, nullptr), c.expectedPoint);
        EXPECT_EQ(tree.diagram.translatePointToChild(c.expectedPoint, &tree.inner), UXPoint(0, 0));
        EXPECT_EQ(tree.inner.translateSizeToParent({10, 20}, nullptr), UXSize(10, 20));
        EXPECT_EQ(tree.inner.translateDimensionToParent(10, nullptr), 10);
        // Each unit of the inner object is hit at its place, and none beside it.
        const UXRect place = tree.inner.translateRectToParent(tree.inner.getBoundingRect(), nullptr);
        for (const int x : {place.x - 1, place.x, place.x + 29, place.x + 30}) {
            const bool isInside = x >= place.x && x < place.x + 30;
            EXPECT_EQ(tree.diagram.obtainObjectsUnder({x, 20}).front().getObject() == &tree.inner, isInside);
        }
    }
}

TEST(UXDirection, OfARootThatIsNoDiagramMirrorsNothing)
{
    UXObject root;
    UXEventProbe child;
    root.setRect({0, 0, 200, 100});
    root.addChild(&child);
    child.setRect({20, 10, 100, 50});
    root.setDirection(RightToLeft);
    EXPECT_EQ(child.translateRectToParent({0, 0, 10, 20}, nullptr), UXRect(20, 10, 10, 20));
    root.removeChildren();
}

TEST(UXDirection, ExchangesWhatGoesSidewaysForWhoRunsToTheLeft)
{
    Tree tree(AsParent, RightToLeft, LeftToRight);
    for (UXEventProbe* probe : {&tree.outer, &tree.inner}) {
        const bool isMirrored = probe == &tree.outer;
        int key = 0;
        UXDoublePoint wheel;
        probe->whenReached = [&](const UXEvent& event) {
            key = event.getKeyCode();
            wheel = event.getWheelDelta();
        };
        probe->keyDown(uxMakeKeyEvent(UXKeyCode::Left));
        EXPECT_EQ(key, static_cast<int>(isMirrored ? UXKeyCode::Right : UXKeyCode::Left));
        probe->keyDown(uxMakeKeyEvent(UXKeyCode::Up));
        EXPECT_EQ(key, static_cast<int>(UXKeyCode::Up));
        probe->mouseWheel(uxMakeWheelEvent(2, 3));
        EXPECT_EQ(wheel, UXDoublePoint(isMirrored ? -2 : 2, 3));
    }
}

TEST(UXDirection, LaysOutAndPaintsAnewWhatIsInside)
{
    Tree tree(AsParent, AsParent, AsParent);
    tree.diagram.layout();
    tree.diagram.clearDirtyRect();
    tree.outer.setDirection(RightToLeft);
    EXPECT_TRUE(tree.inner.getRequireToVerifyLayout());
    EXPECT_FALSE(tree.diagram.getDirtyRegion().isEmpty());
    tree.diagram.layout();
    tree.outer.setDirection(RightToLeft);
    EXPECT_FALSE(tree.inner.getRequireToVerifyLayout()) << "as it was";
}
