#include "ux/ux_utf8.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

TEST(UXUtf8, IllFormedBytesAreOneReplacementEach)
{
    struct Case {
        const char* name;
        std::string_view text;
        std::vector<char32_t> expected;
    };
    const Case cases[] = {
        {"one to four bytes", "a\xC3\xA4\xE6\xBC\xA2\xF0\x9F\x98\x80", {'a', 0xE4, 0x6F22, 0x1F600}},
        {"cut short", "\xE6\xBC", {0xFFFD, 0xFFFD}},
        {"cut by a letter", "\xE6z", {0xFFFD, 'z'}},
        {"overlong", "\xC0\x80\xE0\x80\x80", {0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}},
        {"surrogate", "\xED\xA0\x80", {0xFFFD, 0xFFFD, 0xFFFD}},
        {"beyond Unicode", "\xF4\x90\x80\x80", {0xFFFD, 0xFFFD, 0xFFFD, 0xFFFD}},
        {"the last one", "\xF4\x8F\xBF\xBF", {0x10FFFF}},
        {"never a first byte", "\xFF\x80", {0xFFFD, 0xFFFD}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<char32_t> read;
        for (std::size_t at = 0; at < c.text.size();)
            read.push_back(uxDecodeUtf8(c.text, at));
        EXPECT_EQ(read, c.expected);
    }
}
