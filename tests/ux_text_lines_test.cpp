#include "ux/ux_text_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

// One unit for each byte, so that a width limit counts bytes.
double countBytes(std::string_view piece) { return static_cast<double>(piece.size()); }

} // namespace

TEST(UXTextLines, BreakWhereTheTextAllowsIt)
{
    struct Case {
        const char* name;
        std::string_view text;
        double limit;
        std::vector<std::string_view> expected;
    };
    const Case cases[] = {
        {"empty", "", 5, {""}},
        {"fits exactly", "abc de", 6, {"abc de"}},
        {"at the last blank", "abc de fgh", 7, {"abc de", "fgh"}},
        {"blanks at a break", "abc   de", 4, {"abc", "de"}},
        {"blanks at the end", "abc   ", 3, {"abc"}},
        {"short enough, kept as it is", " a  ", 5, {" a  "}},
        {"only blanks", "   ", 5, {"   "}},
        {"a long word", "ab cdefgh i", 3, {"ab", "cde", "fgh", "i"}},
        {"a long word's rest", "abcde fg", 3, {"abc", "de", "fg"}},
        {"no room at all", "ab c", 0, {"a", "b", "c"}},
        {"whole characters", "\xC3\xA4\xC3\xB6\xC3\xBC", 3, {"\xC3\xA4", "\xC3\xB6", "\xC3\xBC"}},
        {"between wide characters", "ab\xE6\xBC\xA2\xE5\xAD\x97", 5, {"ab\xE6\xBC\xA2", "\xE5\xAD\x97"}},
        {"line feeds, no limit", "a\n\nb c\r\n", -1, {"a", "", "b c", ""}},
        {"line feeds and a limit", "a\n\nb c", 2, {"a", "", "b", "c"}},
        {"stray bytes", "\x80\x80\x80\x80\x80", 2, {"\x80\x80", "\x80\x80", "\x80"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(uxBreakTextLines(c.text, c.limit, countBytes), c.expected);
    }
}

TEST(UXTextLines, AMillionCharactersInOneWord)
{
    // Work in proportion to the text: a quadratic way would not end within the test's time.
    const std::string text(1 << 20, 'x');
    EXPECT_EQ(uxBreakTextLines(text, 16, countBytes).size(), std::size_t{1} << 16);
    EXPECT_EQ(uxBreakTextLines(text, 1e9, countBytes).size(), 1U);
}
