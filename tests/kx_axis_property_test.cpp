#include "kx_axis_property.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

#define KX_NAME(Type, Name, member, initial) #member,
const std::vector<std::string> lookKeys{KX_AXIS_PROPERTY_LOOK_KEYS(KX_NAME)};
#undef KX_NAME

} // namespace

TEST(KXAxisProperty, EveryKey)
{
    KX_WALK_KEY_LISTS(KXAxisProperty, KX_AXIS_PROPERTY_KEYS, KX_AXIS_PROPERTY_ALL_KEYS);
}

TEST(KXAxisProperty, StartsAutomaticAndQuiet)
{
    KXAxisProperty property;
    const std::string document = property.serialize();
    for (const char* part :
         {R"("m_autoAxisRange":true)", R"("m_autoAxisTicks":true)", R"("m_axisPossibleTickCount":5)",
          R"("m_axisTickFormat":"%.10g")", R"("m_showAxis":true)", R"("m_showGridLine":false)",
          R"("m_axisLength":-1)", R"("m_showTickLabels":true)", R"("m_tickLabelRotationType":"Auto")",
          R"("m_tickLabelIntervalMode":"Auto")", R"("m_useFixedTickLabelIntervalForAutoIntervalMode":true)",
          R"("m_tickLabelInterval":10.0)", R"("m_showTitle":true)", R"("m_showTitleAtEndOfAxis":false)"})
        EXPECT_NE(document.find(part), std::string::npos) << part << " in " << document;
    EXPECT_EQ(document.find("m_defaultTitleValue"), std::string::npos);
    EXPECT_EQ(property.getAxisColor(), UXColor());
    EXPECT_EQ(property.getAxisAndTickLabelColor(), UXColor(120, 120, 120, 1.0));
    EXPECT_EQ(property.getScrollBarColor(), UXColor(239, 239, 244, 1.0));
    EXPECT_EQ(property.getScrollBarSliderColor(), UXColor(209, 209, 214, 1.0));

    UXTextProperty text = property.getTitleProperty();
    EXPECT_EQ(text.font.size, 18);
    EXPECT_EQ(text.align, UXTextAlign::Center);
    EXPECT_EQ(text.lineMode, 2);
    EXPECT_EQ(text.textColor, UXColor(120, 120, 120, 1.0));
    text.font.size = 13;
    EXPECT_EQ(property.getTickLabelProperty(), text);
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

TEST(KXAxisProperty, PercentagesNeedBothFlags)
{
    for (const bool isStacked : {false, true}) {
        for (const bool isPercentage : {false, true}) {
            KXAxisProperty property;
            property.setIsStacked(isStacked);
            property.setIs100PercentStacked(isPercentage);
            EXPECT_EQ(property.obtainIs100PercentStacked(), isStacked && isPercentage);
        }
    }
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
