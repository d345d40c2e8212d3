#include "kx_chart_property.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

TEST(KXChartProperty, EveryKey)
{
    KX_WALK_KEY_LISTS(KXChartProperty, KX_CHART_PROPERTY_KEYS, KX_CHART_PROPERTY_ALL_KEYS);
}

TEST(KXChartProperty, PartsOfTheTitlePropertyChangeItAsAWhole)
{
    KXChartProperty property;
    int calls = 0;
    property.registerUpdatedEvents("m_titleProperty", [&](const std::string&) { ++calls; });

    property.updateTitleColor(UXColor(16, 16, 16, 1.0));
    EXPECT_EQ(calls, 0);
    property.updateTitleColor(UXColor(1, 2, 3, 1.0));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(property.getUpdatedKeys(), KXKeys{"m_titleProperty"});

    UXTextProperty text;
    text.font.size = 30;
    text.textColor = UXColor(9, 9, 9, 1.0);
    property.updateTitlePropertyWithoutColor(text, {"m_titleProperty"}, true);
    property.updateTitleColor(text.textColor, {}, false);
    EXPECT_EQ(calls, 1) << "the lists name the whole property's key";
    property.updateTitlePropertyWithoutColor(text, {"m_titleProperty"}, false);
    EXPECT_EQ(calls, 2);
    text.textColor = UXColor(1, 2, 3, 1.0);
    EXPECT_EQ(property.getTitleProperty(), text);
}

TEST(KXChartProperty, AResetTakesTheKeysOfItsGroups)
{
    const KXKeys border{"m_borderColor", "m_showBorder"};
    const KXKeys styledTitle{"m_enableTitleClick", "m_showTitle",     "m_titleHorizontalAlign",
                             "m_titlePosition",    "m_titleProperty", "m_titleVerticalAlign"};
    const KXKeys legend{"m_legendHorizontalAlign", "m_legendLabelColor", "m_legendPosition",
                        "m_legendVerticalAlign", "m_showLegend"};
    const auto with = [](KXKeys keys, const KXKeys& more) {
        keys.insert(more.begin(), more.end());
        return keys;
    };
    const KXChartResetType all = KXChartResetType::All, style = KXChartResetType::Style;
    const std::tuple<const char*, KXChartResetType, KXKeys, KXKeys> cases[] = {
        {"nothing", style, {}, {}},
        {"interaction in any case", all, {}, {"m_enableInteraction"}},
        {"background", style, {"Background"}, {"m_backgroundColor"}},
        {"border", style, {"Border"}, border},
        {"title", style, {"Title", "TopX"}, styledTitle},
        {"title and its text", all, {"Title"}, with(styledTitle, {"m_titleValue", "m_enableInteraction"})},
        {"legend", style, {"Legend"}, legend},
        {"colours", style, {"ColorSeries"}, {"m_defaultColor"}},
        {"top items", all, {"TopX"}, {"m_enableInteraction", "m_showOnlyTopX", "m_topXItemsToShow"}},
        {"another number counts as style", static_cast<KXChartResetType>(7), {"Border", "TopX"}, border},
        {"unknown groups", style, {"border", ""}, {}},
    };
    using Self = KXChartProperty;
    const std::vector<KXWalkedKey<Self>> rows{KX_CHART_PROPERTY_ALL_KEYS(KX_WALKED_KEY)};
    KXChartProperty source;
    for (const auto& row : rows)
        row.store(source);
    for (const auto& [name, type, groups, taken] : cases) {
        SCOPED_TRACE(name);
        KXChartProperty property;
        property.customResetProperties(type, &source, groups);
        EXPECT_EQ(property.getUpdatedKeys(), taken);
        for (const auto& row : rows)
            EXPECT_TRUE(row.equal(property, taken.contains(row.key) ? source : KXChartProperty())) << row.key;
    }
}
