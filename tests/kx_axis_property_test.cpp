#include "kx_axis_property.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(KXAxisProperty, EveryKey)
{
    KX_WALK_KEY_LISTS(KXAxisProperty, KX_AXIS_PROPERTY_KEYS, KX_AXIS_PROPERTY_ALL_KEYS);
}

TEST(KXAxisProperty, TheFontColorIsPartOfTheTickLabels)
{
    KXAxisProperty property;
    std::vector<std::string> called;
    property.registerUpdatedEvents([&](const std::string& key) { called.push_back(key); });
    property.updateTickLabelFontColor(UXColor(120, 120, 120, 1.0));
    property.updateTickLabelFontColor(UXColor(1, 2, 3, 1.0), {"m_tickLabelProperty"}, true);
    EXPECT_TRUE(called.empty());
    property.updateTickLabelFontColor(UXColor(1, 2, 3, 1.0), {"m_tickLabelProperty"}, false);
    EXPECT_EQ(called, std::vector<std::string>{"m_tickLabelProperty"});
    EXPECT_EQ(property.getTickLabelFontColor(), UXColor(1, 2, 3, 1.0));
    EXPECT_EQ(property.getTickLabelProperty().font.size, 13);
}

TEST(KXAxisProperty, AResetTakesTheKeysOfItsGroups)
{
    KXAxisProperty source, grid, all;
    grid.customResetProperties(KXChartResetType::Style, &source, {"GridLine", "AxisRange"});
    EXPECT_EQ(grid.getUpdatedKeys(), (KXKeys{"m_gridLineColor", "m_showGridLine"}));
    all.customResetProperties(KXChartResetType::All, &source, {"Title"});
    EXPECT_TRUE(all.getUpdatedKeys().contains("m_titleValue"));
    EXPECT_FALSE(all.getUpdatedKeys().contains("m_defaultTitleValue"));
}
