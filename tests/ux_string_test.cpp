#include "ux/ux_string.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

TEST(UXString, NumbersInPlainDigits)
{
    struct Case {
        double value;
        int decimals;
        const char* expected;
    };
    const Case cases[] = {
        {1234567.891, 2, "1234567.89"},
        {0.5, 0, "0"},
        {1.5, 0, "2"},
        {-0.001, 2, "0.00"},
        {-0.0, 0, "0"},
        {-0.006, 2, "-0.01"},
        {1, -3, "1"},
        {NAN, 2, "nan"},
        {-INFINITY, 2, "-inf"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.expected);
        EXPECT_EQ(uxDoubleToString(c.value, c.decimals), c.expected);
    }
    EXPECT_EQ(uxDoubleToString(-DBL_MAX, 5000).size(), 1U + 309 + 1 + 100);
    EXPECT_EQ(uxToString(INT_MIN), "-2147483648");
    EXPECT_EQ(uxToString(static_cast<const char*>(nullptr)), "");
}

TEST(UXString, ReplacingGoesOnceFromLeftToRight)
{
    EXPECT_EQ(uxReplaceString("a,b,,c", ",", ", "), "a, b, , c");
    EXPECT_EQ(uxReplaceString("aaa", "aa", "a"), "aa");
    EXPECT_EQ(uxReplaceString("abc", "", "x"), "abc");
    EXPECT_EQ(uxReplaceString("abc", "abc", ""), "");
    EXPECT_EQ(uxReplaceString("", "a", "b"), "");
}

TEST(UXString, ComparingBytes)
{
    EXPECT_TRUE(uxEqualStrings("Title", "tITLE", false));
    EXPECT_FALSE(uxEqualStrings("Title", "tITLE", true));
    EXPECT_FALSE(uxEqualStrings("Title", "Titles", false));
    EXPECT_FALSE(uxEqualStrings("[", "{", false)); // neighbours of the letters
    EXPECT_FALSE(uxEqualStrings("\xC3\x84", "\xC3\xA4", false));
    EXPECT_FALSE(uxEqualStringsCS("a", "A"));
    EXPECT_EQ(uxCompareStringsCS("b", "abc"), 1);
    EXPECT_EQ(uxCompareStringsCS("a", "a\xC3\xA4"), -1);
    EXPECT_EQ(uxCompareStringsCS("", ""), 0);
    EXPECT_TRUE(uxEmptyString(nullptr));
    EXPECT_TRUE(uxEmptyString(""));
    EXPECT_FALSE(uxEmptyString(" "));
}
