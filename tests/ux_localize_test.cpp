#include "ux/ux_localize.h"

#include <gtest/gtest.h>

TEST(UXLocalize, AsksTheLocalizerWhileThereIsOne)
{
    EXPECT_EQ(uxLocalizeString("Sum"), "Sum");
    uxSetLocalizer([](const std::string& text) { return "<" + text + ">"; });
    EXPECT_EQ(uxLocalizeString("Sum"), "<Sum>");
    uxSetLocalizer(nullptr);
    EXPECT_EQ(uxLocalizeString("Sum"), "Sum");
}
