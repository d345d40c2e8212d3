#include "ux/ux_text_shortening.h"

#include "ux/ux_utf8.h"

#include <gtest/gtest.h>

TEST(UXTextShortening, CutsBetweenCharactersAndKeepsAllThatFits)
{
    // Every character is one unit wide.
    const auto widthOf = [](std::string_view text) {
        double width = 0;
        for (std::size_t at = 0; at < text.size(); ++width)
            (void)uxDecodeUtf8(text, at);
        return width;
    };
    struct Case {
        const char* name;
        const char* line;
        UXTextOption option;
        double limit;
        const char* expected;
    };
    const Case cases[] = {
        {"fits exactly", "abcdef", UXTextOption::EllipsisEnd, 6, "abcdef"},
        {"does not cut", "abcdef", UXTextOption::Default, 2, "abcdef"},
        {"end", "abcdef", UXTextOption::EllipsisEnd, 4, "abc…"},
        {"start", "abcdef", UXTextOption::EllipsisStart, 4, "…def"},
        {"middle", "abcdef", UXTextOption::EllipsisMiddle, 4, "ab…f"},
        {"characters stay whole", "销售额", UXTextOption::EllipsisEnd, 2, "销…"},
        {"no room", "abc", UXTextOption::EllipsisMiddle, 0, "…"},
        {"invalid bytes", "\xff\xff\xff", UXTextOption::EllipsisEnd, 2, "\xff…"},
        {"empty", "", UXTextOption::EllipsisEnd, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxShortenText(c.line, c.option, c.limit, widthOf), c.expected);
    }
}
