#include "ux/ux_hint_info.h"

#include <gtest/gtest.h>

TEST(UXHintInfo, AddedRowsCanBeEditedAfterMoreAreAdded)
{
    UXHintInfo info;
    UXHintRowInfo& first = info.addRow("Sales", "12");
    for (int i = 0; i < 1000; ++i)
        (void)info.addRow({1, 2, 3}, UXSymbolStyle::Circle, "Region", "1");
    first.value = "13";
    EXPECT_EQ(info.rows.front().value, "13");
    EXPECT_FALSE(info.rows.front().showSymbol);
    EXPECT_TRUE(info.rows.back().showSymbol);
    EXPECT_EQ(info.addRow(-5).blankHeight, 0);
}
