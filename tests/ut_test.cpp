#include "ux/ut.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(Ut, ComparesWithinItsTolerance)
{
    const double infinity = std::numeric_limits<double>::infinity(), nan = std::nan("");
    EXPECT_EQ(utCompareDoubles(1, 1 + 0.9e-8), 0);
    EXPECT_EQ(utCompareDoubles(1, 1 + 1.1e-8), -1);
    EXPECT_EQ(utCompareDoubles(1 + 1.1e-8, 1), 1);
    EXPECT_EQ(utCompareDoubles(infinity, infinity), 0);
    EXPECT_EQ(utCompareDoubles(-infinity, infinity), -1);
    EXPECT_EQ(utCompareDoubles(nan, -infinity), -1);
    EXPECT_EQ(utCompareDoubles(0, nan), 1);
    EXPECT_EQ(utCompareDoubles(nan, nan), 0);
    EXPECT_EQ(utToString(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
}
