#include "kx_chart_property.h"

#include "kx_key_walk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(KXChartProperty, EveryKey)
{
    KX_WALK_KEY_LISTS(KXChartProperty, KX_CHART_PROPERTY_KEYS, KX_CHART_PROPERTY_ALL_KEYS);
}

TEST(KXChartProperty, StartsWithTheQuietLook)
{
    KXChartProperty property;
    EXPECT_FALSE(property.getShowBorder());
    EXPECT_EQ(property.getBorderColor(), UXColor(211, 211, 211, 1.0));
    EXPECT_EQ(property.getBackgroundColor(), UXColor(255, 255, 255, 0.0));
    EXPECT_EQ(property.getDefaultColor(), UXColor(51, 212, 217, 1.0));
    EXPECT_TRUE(property.getShowTitle());
    EXPECT_EQ(property.getTitleProperty().font.familyName, "Default");
    EXPECT_EQ(property.getTitleProperty().font.size, 18);
    EXPECT_EQ(property.getTitleProperty().textColor, UXColor(16, 16, 16, 1.0));
    EXPECT_EQ(property.getTitleProperty().lineMode, 2);
    EXPECT_EQ(property.getTitleProperty().align, UXTextProperty().align);
    EXPECT_TRUE(property.getShowLegend());
    EXPECT_EQ(property.getLegendLabelColor(), UXColor(120, 120, 120, 1.0));
    EXPECT_FALSE(property.getShowOnlyTopX());
    EXPECT_EQ(property.getTopXItemsToShow(), 10);
    EXPECT_FALSE(property.getEnableTitleClick());
    EXPECT_TRUE(property.getEnableInteraction());

    const std::string document = property.serialize();
    EXPECT_EQ(document.find("m_enableInteraction"), std::string::npos);
    for (const char* part : {R"("m_titlePosition":"Top")", R"("m_titleHorizontalAlign":"Left")",
                             R"("m_titleVerticalAlign":"Top")", R"("m_legendPosition":"Top")",
                             R"("m_legendHorizontalAlign":"Left")", R"("m_legendVerticalAlign":"Top")"})
        EXPECT_NE(document.find(part), std::string::npos) << part << " in " << document;
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

TEST(KXChartProperty, WrappingIsTheTitlesLineMode)
{
    KXChartProperty property;
    UXTextProperty expected = property.getTitleProperty();
    EXPECT_FALSE(property.getTitleValueWrap());
    property.updateTitleValueWrap(true);
    EXPECT_TRUE(property.getTitleValueWrap());
    expected.lineMode = 1;
    EXPECT_EQ(property.getTitleProperty(), expected);
    property.unmarkUpdatedProperties();
    property.updateTitleValueWrap(true);
    EXPECT_TRUE(property.getUpdatedKeys().empty());
    property.updateTitleValueWrap(false);
    EXPECT_EQ(property.getTitleProperty().lineMode, 2);
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
    struct Case {
        const char* name;
        KXChartResetType type;
        KXKeys groups, taken;
    };
    const KXChartResetType all = KXChartResetType::All, style = KXChartResetType::Style;
    const Case cases[] = {
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
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXChartProperty property;
        property.customResetProperties(c.type, &source, c.groups);
        EXPECT_EQ(property.getUpdatedKeys(), c.taken);
        for (const auto& row : rows)
            EXPECT_TRUE(row.equal(property, c.taken.contains(row.key) ? source : KXChartProperty()))
                << row.key;
    }
}

TEST(KXChartProperty, AResetGoesThroughItsGroupsInOrder)
{
    KXChartProperty property, source;
    std::vector<std::string> called;
    property.registerUpdatedEvents([&](const std::string& key) { called.push_back(key); });
    property.customResetProperties(KXChartResetType::All, &source,
                                   {"Border", "Background", "Title", "ColorSeries"});
    EXPECT_EQ(called,
              (std::vector<std::string>{"m_backgroundColor", "m_showBorder", "m_borderColor", "m_showTitle",
                                        "m_titleValue", "m_titleProperty", "m_titlePosition",
                                        "m_titleHorizontalAlign", "m_titleVerticalAlign",
                                        "m_enableTitleClick", "m_defaultColor", "m_enableInteraction"}));
}
