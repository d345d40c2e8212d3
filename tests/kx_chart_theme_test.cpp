#include "kx_chart_theme.h"

#include "kx_assistant_line_property.h"
#include "kx_axis_chart_property.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_property.h"
#include "kx_chart_property.h"
#include "kx_json_object_factory.h"
#include "ux/ux_color_contrast.h"
#include "ux/ux_palette.h"
#include "ux/ux_property_table.h"
#include "ux/ux_text_property.h"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <typeinfo>

namespace {

bool holdsColors(const UXPropertyType& type)
{
    return *type.info == typeid(UXColor) || *type.info == typeid(UXTextProperty) ||
           *type.info == typeid(std::vector<UXColor>);
}

void collectColorKeys(UXJsonObject& object, std::set<std::string>& keys)
{
    const UXPropertyTable* table = UXPropertyTable::obtainTable(object);
    for (const std::string& key : table ? table->obtainKeys() : std::vector<std::string>()) {
        const UXPropertyTable::Found found = table->find(object, key);
        if (found.property && found.property->type().isObject)
            collectColorKeys(*static_cast<UXJsonObject*>(found.property->place(found.owner)), keys);
        else if (found.property && holdsColors(found.property->type()))
            keys.insert(key);
    }
}

} // namespace

TEST(KXChartTheme, ColorsOfTheLibrarysThemesCanBeReadAndToldApart)
{
    for (const std::string& name : KXChartTheme::obtainNames()) {
        SCOPED_TRACE(name);
        const std::unique_ptr<KXChartTheme> theme = KXChartTheme::create(name);
        const UXColor ground = theme->getGround();
        for (const UXColor& text :
             {theme->getStrongText(), theme->getText(), theme->getQuietText(), theme->getFaintText()})
            EXPECT_GE(uxObtainContrast(text, ground), uxReadableContrast);
        for (const UXColor& sign :
             {theme->getIncreaseColor(), theme->getDecreaseColor(), theme->getTotalColor(),
              theme->getGoodColor(), theme->getFairColor(), theme->getPoorColor()})
            EXPECT_GE(uxObtainContrast(sign, ground), 3);
        const std::vector<UXColor> palette = theme->getPalette();
        EXPECT_GE(palette.size(), 8U);
        EXPECT_TRUE(uxMeasurePalette(palette, ground).areEnough());
        EXPECT_EQ(uxMakeDistinctPalette(palette, ground), palette) << "nothing to make better";
    }
    EXPECT_EQ(KXChartTheme::create("beige"), nullptr);
}

TEST(KXChartTheme, HasAWordAboutEveryColorOfEveryKind)
{
    KXJsonObjectFactory factory;
    std::set<std::string> keys;
    for (const std::string& type : KXJsonObjectFactory::obtainTypeNames()) {
        const std::unique_ptr<UXJsonObject> object(factory.create(type));
        collectColorKeys(*object, keys);
    }
    EXPECT_GT(keys.size(), 30U);
    for (const std::string& key : keys)
        EXPECT_TRUE(kxIsThemeKey(key)) << key;
}

TEST(KXChartTheme, ComesAndGoesAndLeavesWhatWasSetByHand)
{
    const std::unique_ptr<KXChartTheme> light = KXChartTheme::create("light"),
                                        dark = KXChartTheme::create("dark");
    KXJsonObjectFactory factory;
    for (const std::string& type : KXJsonObjectFactory::obtainChartTypeNames()) {
        SCOPED_TRACE(type);
        const std::unique_ptr<UXJsonObject> object(factory.create(type));
        auto& chart = dynamic_cast<KXChart&>(*object);
        const std::string made = chart.serialize();
        kxApplyTheme(chart, nullptr, dark.get());
        EXPECT_EQ(chart.getChartProperty()->getBackgroundColor(), dark->getGround());
        EXPECT_EQ(chart.getChartProperty()->getTitleProperty().textColor, dark->getStrongText());
        const std::string inDark = chart.serialize();
        kxApplyTheme(chart, dark.get(), light.get());
        EXPECT_NE(chart.serialize(), inDark);
        kxApplyTheme(chart, light.get(), dark.get());
        EXPECT_EQ(chart.serialize(), inDark);
        kxApplyTheme(chart, dark.get(), nullptr);
        EXPECT_EQ(chart.serialize(), made);
    }

    KXBarChart chart;
    const UXColor own(1, 2, 3);
    chart.getChartProperty()->updateBackgroundColor(own);
    UXTextProperty label = chart.getBarChartProperty()->getLabelProperty();
    label.font.size = 30;
    chart.getBarChartProperty()->updateLabelProperty(label);
    kxApplyTheme(chart, nullptr, dark.get());
    EXPECT_EQ(chart.getChartProperty()->getBackgroundColor(), own);
    EXPECT_EQ(chart.getBarChartProperty()->getLabelProperty().textColor, dark->getText());
    EXPECT_EQ(chart.getBarChartProperty()->getLabelProperty().font.size, 30) << "a font is no colour";
    chart.getAxisChartProperty()->updateAssistantLines(std::vector<KXAssistantLineProperty>(1));
    kxApplyTheme(chart, nullptr, dark.get());
    const auto lines = chart.getAxisChartProperty()->getAssistantLines();
    EXPECT_EQ(lines.at(0).getColor(), dark->getQuietText()) << "in a list, too";
}

TEST(KXChartTheme, IsADocument)
{
    const std::unique_ptr<KXChartTheme> dark = KXChartTheme::create("dark");
    KXChartTheme read;
    EXPECT_TRUE(read.deserialize(dark->serialize()));
    EXPECT_EQ(read.serialize(), dark->serialize());
    EXPECT_EQ(read.getPalette(), dark->getPalette());
    EXPECT_EQ(read.getName(), "dark");
}
