#include "ux/ux_text_measurer.h"

#include "ux/ux_approximate_text_measurer.h"
#include "ux/ux_text_measure_cache.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace {

UXDoubleSize measure(const std::string& text, double limit = -1)
{
    return uxMeasureText(text, {}, {}, 2, limit);
}

UXDoubleSize approximate(const std::string& text, int lineMode = 2, double limit = -1, bool bold = false)
{
    UXFont font;
    font.size = 10;
    font.bold = bold;
    return UXApproximateTextMeasurer().measureText(text, font, UXTextOption::Default, lineMode, limit);
}

} // namespace

TEST(UXTextMeasurer, AsksOncePerQuestion)
{
    const UXFixedMeasurer measurer;
    EXPECT_EQ(measure("a"), UXDoubleSize(6, 12));
    EXPECT_EQ(measure("a"), UXDoubleSize(6, 12));
    EXPECT_EQ(measurer.askedCount, 1);

    UXFont bold, large, italic, other, named;
    bold.bold = italic.italic = true;
    large.size = 13;
    other.attribute = 1;
    named.familyName = "Serif";
    int expected = 1;
    for (const UXFont& font : {bold, large, italic, other, named}) {
        (void)uxMeasureText("a", font, {}, 2);
        EXPECT_EQ(measurer.askedCount, ++expected);
    }
    (void)uxMeasureText("a", {}, UXTextOption::EllipsisEnd, 2);
    (void)uxMeasureText("a", {}, {}, 1);
    (void)measure("a", 0);
    (void)measure("a", 0.5);
    EXPECT_EQ(measurer.askedCount, expected + 4);
}

TEST(UXApproximateTextMeasurer, WrapsInLineModeOneAlone)
{
    const double limit = approximate("some words").width;
    EXPECT_EQ(approximate("some words here", 2, limit), approximate("some words here"));
    EXPECT_EQ(approximate("some words here", 1), approximate("some words here"));
    const UXDoubleSize wrapped = approximate("some words here", 1, limit);
    EXPECT_DOUBLE_EQ(wrapped.width, limit);
    EXPECT_DOUBLE_EQ(wrapped.height, 2 * approximate("some").height);

    UXFont font;
    const auto cut = UXApproximateTextMeasurer().measureText("abcdef", font, UXTextOption::EllipsisEnd, 2,
                                                             20);
    EXPECT_DOUBLE_EQ(cut.width, 20);
    font.size = -4;
    EXPECT_EQ(UXApproximateTextMeasurer().measureText("abc", font, {}, 1, 5), UXDoubleSize());
    font.size = std::numeric_limits<int>::max();
    EXPECT_TRUE(std::isfinite(uxMeasureText(std::string(1000, 'W'), font, {}, 2).width));
}

TEST(UXTextMeasureCache, ForgetsWhatWasNotAskedForLongest)
{
    UXTextMeasureCache cache(3, 1 << 20);
    const UXFont font;
    const auto request = [&](const std::string& text) {
        return UXTextMeasureRequest{text, font, UXTextOption::Default, 2, -1};
    };
    const std::string texts[] = {"a", "b", "c", "d"};
    for (int i = 0; i < 3; ++i)
        cache.insert(request(texts[i]), UXDoubleSize(i, i));
    EXPECT_TRUE(cache.find(request(texts[0])));
    cache.insert(request(texts[3]), {3, 3});
    EXPECT_EQ(cache.getCount(), 3U);
    EXPECT_FALSE(cache.find(request(texts[1])));
    EXPECT_EQ(cache.find(request(texts[0])), UXDoubleSize(0, 0));
    EXPECT_EQ(cache.find(request(texts[2])), UXDoubleSize(2, 2));

    cache.insert(request(texts[2]), {5, 5});
    EXPECT_EQ(cache.find(request(texts[2])), UXDoubleSize(5, 5));
    EXPECT_EQ(cache.getCount(), 3U);
}

TEST(UXTextMeasureCache, StaysWithinItsBytes)
{
    constexpr std::size_t maximumBytes = 64 << 10;
    UXTextMeasureCache cache(1 << 20, maximumBytes);
    const UXFont font;
    for (int i = 0; i < 5000; ++i) {
        const std::string text = std::to_string(i) + std::string(static_cast<std::size_t>(i % 700), 'x');
        const UXTextMeasureRequest request{text, font, UXTextOption::Default, 1, 100.0 + i};
        cache.insert(request, {1, 1});
        EXPECT_EQ(cache.find(request), UXDoubleSize(1, 1));
        ASSERT_LE(cache.getBytes(), maximumBytes);
    }
    EXPECT_GT(cache.getCount(), 16U);

    const std::size_t count = cache.getCount();
    const std::string huge(maximumBytes / 8, 'x');
    cache.insert({huge, font, UXTextOption::Default, 1, -1}, {1, 1});
    EXPECT_EQ(cache.getCount(), count);
    cache.clear();
    EXPECT_EQ(cache.getBytes(), 0U);
}
