#include "ux/ux.h"

#include <gtest/gtest.h>

#include <string_view>

// Including the umbrella header compiles is the main point of this file.
TEST(UXUmbrella, NamesOfEnumerationsStandInTheirOrder)
{
    EXPECT_EQ(static_cast<int>(UXAlign::Client), 2);
    EXPECT_EQ(static_cast<int>(UXSymbolStyle::AssistantLineWithDot), 11);
    EXPECT_EQ(static_cast<int>(UXEventType::KeyUp), 13);
    EXPECT_EQ(std::string_view(uxObtainEnumNames(UXHintPosition{})), "AboveValue, Top");
}
