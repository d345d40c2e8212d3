#include "ux/ux_space.h"

#include "ux/ux_object.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

TEST(UXSpace, RefusesWhatCannotBeUndone)
{
    UXSpace space;
    EXPECT_FALSE(space.isInitialized());
    for (const double wrong : {0.0, -1.0, static_cast<double>(INFINITY), static_cast<double>(NAN)}) {
        space.setXScale(wrong);
        space.setYScale(wrong);
    }
    EXPECT_FALSE(space.isInitialized());
    EXPECT_EQ(space.getXScale(), 1);
    EXPECT_EQ(space.getYScale(), 1);
    space.setRelativeOrigin({0, 0});
    EXPECT_TRUE(space.isInitialized());
}

namespace {

/** root (ignored rectangle) > a (10,20) with a space of origin (3,4), scales 2 and 3 > b (5,6) > c (1,1);
 * root > d */
struct Tree {
    UXObject root;
    UXObject *a = add(root, {10, 20, 100, 100}), *b = add(*a, {5, 6, 50, 50}), *c = add(*b, {1, 1, 10, 10}),
             *d = add(root, {-7, 8, 10, 10});
    UXSpace space;

    Tree()
    {
        root.setRect({1000, 1000, 500, 500});
        space.setRelativeOrigin({3, 4});
        space.setXScale(2);
        space.setYScale(3);
        a->setSpace(&space);
    }

    static UXObject* add(UXObject& parent, const UXRect& rect)
    {
        auto* made = new UXObject;
        parent.addChild(made);
        made->setRect(rect);
        return made;
    }
};

} // namespace

TEST(UXObjectTranslation, Points)
{
    Tree t;
    struct Case {
        const char* name;
        UXObject* from;
        UXObject* to;
        UXPoint point, expected;
    };
    const Case cases[] = {
        {"to itself", t.b, t.b, {4, 4}, {4, 4}},
        {"to the parent", t.c, t.b, {2, 2}, {3, 3}},
        {"out of the space", t.a, &t.root, {1, 1}, {15, 27}},
        {"to the root through all", t.c, &t.root, {0, 0}, {10 + 3 + 2 * 6, 20 + 4 + 3 * 7}},
        {"null is the root", t.c, nullptr, {0, 0}, {25, 45}},
        {"down to the child", &t.root, t.c, {25, 45}, {0, 0}},
        {"rounded to the nearest", &t.root, t.a, {16, 25}, {2, 0}},
        {"across", t.c, t.d, {0, 0}, {32, 37}},
        {"from null", nullptr, t.d, {0, 0}, {7, -8}},
        {"at the limit", t.a, &t.root, {INT_MAX, INT_MIN}, {INT_MAX, INT_MIN}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(t.root.translatePoint(c.point, c.from, c.to), c.expected);
        if (c.from) {
            EXPECT_EQ(c.from->translatePoint(c.point, c.to), c.expected);
        }
    }
    EXPECT_EQ(t.c->translatePointToParent({0, 0}, t.a), UXPoint(6, 7));
    EXPECT_EQ(t.a->translatePointToChild({6, 7}, t.c), UXPoint(0, 0));
}

TEST(UXObjectTranslation, SizesRectanglesAndDimensions)
{
    Tree t;
    EXPECT_EQ(t.c->translateSizeToParent({5, 5}, &t.root), UXSize(10, 15));
    EXPECT_EQ(t.root.translateSizeToChild({10, 15}, t.c), UXSize(5, 5));
    EXPECT_EQ(t.root.translateSize({10, 15}, t.d, t.b), UXSize(5, 5));
    EXPECT_EQ(t.c->translateRectToParent({0, 0, 10, 10}, &t.root), UXRect(25, 45, 20, 30));
    EXPECT_EQ(t.root.translateRectToChild({25, 45, 20, 30}, t.c), UXRect(0, 0, 10, 10));
    EXPECT_EQ(t.root.translateRectToChild({26, 46, 1, 1}, t.c), UXRect(0, 0, 1, 1))
        << "the whole pixels around";
    EXPECT_EQ(t.root.translateRect({0, 0, 0, -4}, t.c, t.d), UXRect(32, 37, 0, -12)) << "empty stays empty";
    EXPECT_EQ(t.a->translateRectToParent({-INT_MAX, 0, INT_MAX, 5}, &t.root),
              UXRect(INT_MIN, 24, INT_MAX, 15));
    EXPECT_DOUBLE_EQ(t.b->translateDimensionToParent(10, &t.root), 10 * std::sqrt(6.0));
    EXPECT_DOUBLE_EQ(t.root.translateDimensionToChild(10, t.b), 10 / std::sqrt(6.0));
    t.space.setYScale(2);
    EXPECT_EQ(t.root.translateDimension(10, t.c, t.d), 20);
}

TEST(UXObjectTranslation, ExtremeScalesStayInRange)
{
    Tree t;
    t.space.setXScale(1e308);
    t.space.setYScale(1e-308);
    UXSpace again;
    again.setXScale(1e308);
    again.setYScale(1e-308);
    t.b->setSpace(&again);
    const UXPoint out = t.c->translatePointToParent({1, 1}, &t.root);
    EXPECT_EQ(out.x, INT_MAX);
    EXPECT_EQ(out.y, 24);
    const UXRect in = t.root.translateRectToChild({0, 0, 10, 10}, t.c);
    EXPECT_GE(in.width, 0);
    EXPECT_GE(in.height, 0);
}
