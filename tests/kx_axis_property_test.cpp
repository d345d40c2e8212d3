#include "kx_axis_property.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

#define KX_NAME(Type, Name, member, ...) #member,
const std::vector<std::string> lookKeys{KX_AXIS_PROPERTY_LOOK_KEYS(KX_NAME)};
#undef KX_NAME

} // namespace

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
    const KXKeys groups{"AxisRange", "AxisTick",  "Stack", "Axis",
                        "GridLine",  "TickLabel", "Title", "ScrollBar"};
    using Self = KXAxisProperty;
    const std::vector<KXWalkedKey<Self>> rows{KX_AXIS_PROPERTY_ALL_KEYS(KX_WALKED_KEY)};
    KXAxisProperty source, whole, styled;
    KXKeys keys, styles(lookKeys.begin(), lookKeys.end());
    for (const auto& row : rows) {
        row.store(source);
        keys.insert(row.key);
    }
    keys.erase("m_defaultTitleValue");
    styles.erase("m_titleValue");

    whole.customResetProperties(KXChartResetType::All, &source, groups);
    EXPECT_EQ(whole.getUpdatedKeys(), keys);
    styled.customResetProperties(KXChartResetType::Style, &source, groups);
    EXPECT_EQ(styled.getUpdatedKeys(), styles);
    for (const auto& row : rows) {
        EXPECT_TRUE(row.equal(whole, keys.contains(row.key) ? source : KXAxisProperty())) << row.key;
        EXPECT_TRUE(row.equal(styled, styles.contains(row.key) ? source : KXAxisProperty())) << row.key;
    }
    KXAxisProperty grid;
    grid.customResetProperties(KXChartResetType::Style, &source, {"GridLine", "AxisRange"});
    EXPECT_EQ(grid.getUpdatedKeys(), (KXKeys{"m_gridLineColor", "m_showGridLine"}));
}
