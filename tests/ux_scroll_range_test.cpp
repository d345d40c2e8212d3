#include "ux/ux_scroll_range.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

constexpr std::int64_t huge = std::int64_t{1} << 60;

TEST(UXScrollRange, SlidersLieWhereTheContentDoes)
{
    struct Case {
        const char* name;
        UXScrollRange range;
        int track;
        UXSliderSpan expected;
    };
    const Case cases[] = {
        {"content fits", {100, 100, 0}, 100, {0, 100}},
        {"no content", {0, 100, 0}, 100, {0, 100}},
        {"negative extents", {-5, -7, -9}, 100, {0, 100}},
        {"half at the start", {200, 100, 0}, 100, {0, 50}},
        {"half in the middle", {200, 100, 50}, 100, {25, 50}},
        {"an offset beyond the end", {200, 100, 900}, 100, {50, 50}},
        {"one unit too much can still move", {101, 100, 0}, 100, {0, 98}},
        {"a tiny share keeps a slider to grasp", {100000, 100, 0}, 100, {0, 24}},
        {"just begun is not at the start", {100000, 100, 1}, 100, {1, 24}},
        {"nearly done is not at the end", {100000, 100, 99899}, 100, {75, 24}},
        {"2^60 at the start", {huge, 100, 0}, 100, {0, 24}},
        {"2^60 one before the end", {huge, 100, huge - 101}, 100, {75, 24}},
        {"2^60 at the end", {huge, 100, huge - 100}, 100, {76, 24}},
        {"the largest content", {INT64_MAX, 100, INT64_MAX - 100}, 100, {76, 24}},
        {"nothing shows", {1000, 0, 500}, 100, {38, 24}},
        {"a track shorter than a slider", {1000, 10, 500}, 10, {0, 10}},
        {"no track", {1000, 10, 500}, 0, {0, 0}},
        {"a negative track", {1000, 10, 500}, -4, {0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxObtainSliderSpan(c.range, c.track, 24), c.expected);
    }
}

TEST(UXScrollRange, DragsReachBothEndsAndComeBack)
{
    struct Case {
        const char* name;
        UXScrollRange range;
        int distance;
        std::int64_t expected;
    };
    const Case cases[] = {
        {"not moved keeps the very offset", {100000, 100, 12345}, 0, 12345},
        {"a half to its end", {200, 100, 0}, 50, 100},
        {"beyond the end", {200, 100, 0}, 4000, 100},
        {"beyond the start", {200, 100, 50}, -4000, 0},
        {"2^60 to the end", {huge, 100, 0}, 76, huge - 100},
        {"2^60 back to the start", {huge, 100, huge - 100}, -76, 0},
        {"2^60 by half", {huge, 100, 0}, 38, huge / 2 - 50},
        {"the largest", {INT64_MAX, 0, 0}, INT32_MAX, INT64_MAX},
        {"nothing to scroll", {50, 100, 0}, 10, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXSliderSpan span = uxObtainSliderSpan(c.range, 100, 24);
        const std::int64_t got = uxObtainDraggedOffset(c.range, span, 100, c.distance);
        EXPECT_LE(std::abs(static_cast<double>(got - c.expected)), static_cast<double>(c.expected) * 1e-15);
    }
}
