#include "ux/ux_assert.h"

#include "ux/ut.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

TEST(UXAssert, ReportsTheFailedLineAndGoesOn)
{
    std::vector<std::source_location> reports;
    uxSetAssertHandler([&](std::source_location location) { reports.push_back(location); });
    const int value = 0;
    const int* missing = nullptr;
    EXPECT_TRUE(uxAssert(true));
    EXPECT_TRUE(uxAssert(&value));
    EXPECT_TRUE(reports.empty());
    const unsigned line = __LINE__;
    EXPECT_FALSE(uxAssert(value > 0));
    EXPECT_FALSE(uxAssert(missing));
    EXPECT_FALSE(utAssert(false));
    uxSetAssertHandler(nullptr);

    ASSERT_EQ(reports.size(), 3U);
    for (unsigned i = 0; i < 3; ++i)
        EXPECT_EQ(reports[i].line(), line + 1 + i);
    EXPECT_TRUE(std::string_view(reports[0].file_name()).ends_with("ux_assert_test.cpp"));
}

TEST(UXAssert, AHandlerMayReplaceItself)
{
    int calls = 0;
    const std::string kept(100, 'x');
    uxSetAssertHandler([&calls, kept](std::source_location) {
        uxSetAssertHandler(nullptr);
        calls += static_cast<int>(kept.size());
    });
    uxAssert(false);
    EXPECT_EQ(calls, 100);
    testing::internal::CaptureStderr();
    uxAssert(false);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("ux_assert_test.cpp:"), std::string::npos);
}
