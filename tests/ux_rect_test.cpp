#include "ux/ux_rect_functions.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>

void PrintTo(const UXRect& rect, std::ostream* out)
{
    *out << "(" << rect.x << ", " << rect.y << ", " << rect.width << ", " << rect.height << ")";
}

TEST(UXSaturate, StopsAtTheLimitsOfInt)
{
    EXPECT_EQ(uxSaturateToInt(2147483647.9), INT_MAX);
    EXPECT_EQ(uxSaturateToInt(2147483646.9), INT_MAX - 1);
    EXPECT_EQ(uxSaturateToInt(-2147483648.9), INT_MIN);
    EXPECT_EQ(uxSaturateToInt(1e300), INT_MAX);
    EXPECT_EQ(uxSaturateToInt(-INFINITY), INT_MIN);
    EXPECT_EQ(uxSaturateToInt(NAN), 0);
    EXPECT_EQ(uxSaturateToInt(-1.9), -1);
    EXPECT_EQ(uxSaturateToInt(std::int64_t{INT_MAX} + 1), INT_MAX);
    EXPECT_EQ(uxSaturateToInt(std::int64_t{INT_MIN} - 1), INT_MIN);
    EXPECT_EQ(uxSaturateToInt(UINT64_MAX), INT_MAX);
}

TEST(UXRectFunctions, UnionAndIntersection)
{
    struct Case {
        const char* name;
        UXRect a, b, whole, common;
    };
    const Case cases[] = {
        {"overlapping", {0, 0, 10, 10}, {5, -5, 10, 10}, {0, -5, 15, 15}, {5, 0, 5, 5}},
        {"touching edges", {0, 0, 10, 10}, {10, 0, 10, 10}, {0, 0, 20, 10}, {}},
        {"apart", {0, 0, 1, 1}, {9, 9, 1, 1}, {0, 0, 10, 10}, {}},
        {"one inside the other", {0, 0, 10, 10}, {2, 3, 4, 5}, {0, 0, 10, 10}, {2, 3, 4, 5}},
        {"one empty, inside", {0, 0, 10, 10}, {5, 5, 0, 3}, {0, 0, 10, 10}, {}},
        {"one of negative width", {0, 0, 10, 10}, {5, 5, -3, 3}, {0, 0, 10, 10}, {}},
        {"both empty", {1, 1, 0, 0}, {2, 2, -1, 5}, {2, 2, -1, 5}, {}},
        {"at both ends", {INT_MIN, 0, 1, 1}, {INT_MAX - 1, 0, 1, 1}, {INT_MIN, 0, INT_MAX, 1}, {}},
        {"beyond the end", {5, 5, INT_MAX, INT_MAX}, {0, 0, 10, 10}, {0, 0, INT_MAX, INT_MAX}, {5, 5, 5, 5}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxUnionRect(c.a, c.b), c.whole);
        EXPECT_EQ(uxIntersectionRect(c.a, c.b), c.common);
        EXPECT_EQ(uxIntersectionRect(c.b, c.a), c.common);
        EXPECT_EQ(uxIntersectsRect(c.a, c.b), !uxIsEmptyRect(c.common));
    }
}

TEST(UXRectFunctions, HalfOpenContainment)
{
    const UXRect rect(0, 0, 10, 10);
    EXPECT_TRUE(uxPointInRect({0, 0}, rect));
    EXPECT_TRUE(uxPointInRect({9, 9}, rect));
    EXPECT_FALSE(uxPointInRect({10, 5}, rect));
    EXPECT_FALSE(uxPointInRect({5, 10}, rect));
    EXPECT_FALSE(uxPointInRect({5, 5}, {10, 10, -10, -10}));
    EXPECT_TRUE(uxPointInDoubleRect({9.999, 0}, rect));
    EXPECT_FALSE(uxPointInDoubleRect({NAN, 0}, rect));

    EXPECT_TRUE(uxContainsRect(rect, rect));
    EXPECT_FALSE(uxContainsRect(rect, {5, 5, 6, 1}));
    EXPECT_FALSE(uxContainsRect(rect, {5, 5, 0, 0}));
    EXPECT_FALSE(uxContainsRect({}, {}));
}

TEST(UXRectFunctions, ShiftingKeepsTheSizeThatFits)
{
    struct Case {
        const char* name;
        UXRect rect, bound, expected;
    };
    const Case cases[] = {
        {"inside already", {2, 2, 3, 3}, {0, 0, 10, 10}, {2, 2, 3, 3}},
        {"over the right and the top", {9, -4, 3, 3}, {0, 0, 10, 10}, {7, 0, 3, 3}},
        {"too wide", {5, 5, 30, 3}, {1, 1, 10, 10}, {1, 5, 10, 3}},
        {"too large both ways", {5, 5, 30, 30}, {1, 2, 10, 10}, {1, 2, 10, 10}},
        {"empty bound", {5, 5, 30, 30}, {1, 2, -4, 0}, {1, 2, 0, 0}},
        {"far away", {INT_MIN, INT_MAX, 3, 3}, {0, 0, 10, 10}, {0, 7, 3, 3}},
        {"bound at the end", {0, 0, 3, 3}, {INT_MAX - 2, 0, INT_MAX, 9}, {INT_MAX - 2, 0, 3, 3}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxShiftAndBoundInRect(c.rect, c.bound), c.expected);
    }
}
