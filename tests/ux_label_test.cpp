#include "ux/ux_label.h"

#include "ux/ux_panel.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

TEST(UXLabel, TakesTheSizeOfItsText)
{
    struct Case {
        const char* name;
        std::string text;
        double degrees;
        UXSize expected;
    };
    // A letter is half the font size of 11 wide: 5.5.
    const Case cases[] = {
        {"nothing", "", 0, {0, 0}},
        {"rounded up", "abc", 0, {17, 11}},
        {"upright again", "abc", 180, {17, 12}},
        {"on its side", "abcd", 90, {12, 22}},
        {"half way", "abcd", 45, {24, 24}},
        {"no angle at all", "abc", NAN, {17, 11}},
    };
    const UXFixedMeasurer measurer;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXLabel label;
        UXTextProperty property;
        property.font.size = 11;
        label.setTextProperty(property);
        label.setText(c.text);
        label.setRotation(c.degrees);
        label.setRect(UXRect(3, 4, 500, 600));
        label.autoResize();
        EXPECT_EQ(label.getRect().x, 3);
        EXPECT_EQ(label.getRect().y, 4);
        EXPECT_NEAR(label.getRect().width, c.expected.width, 1);
        EXPECT_NEAR(label.getRect().height, c.expected.height, 1);
        EXPECT_GE(label.getRect().width, static_cast<int>(5.5 * static_cast<double>(c.text.size()) *
                                                          std::abs(std::cos(c.degrees * 3.14159265 / 180))));
    }
}

TEST(UXLabel, WrapsWithinItsPresentWidth)
{
    UXLabel label;
    UXTextProperty property;
    property.lineMode = 1;
    label.setTextProperty(property);
    label.setText("several words that do not fit on one line");
    label.setRect(UXRect(0, 0, 80, 10));
    label.autoResize();
    EXPECT_LE(label.getRect().width, 80);
    EXPECT_GT(label.getRect().height, 30);
}

TEST(UXLabel, PaintsGroundBorderAndText)
{
    const UXFixedMeasurer measurer;
    UXLabel label;
    label.setRect(UXRect(10, 10, 60, 20));
    EXPECT_EQ(uxPaintToText(label).find("drawText"), std::string::npos) << "an empty label draws no text";
    label.setText("text");
    EXPECT_NE(uxPaintToText(label).find("drawText"), std::string::npos);
    EXPECT_EQ(uxPaintToText(label).find("fill"), std::string::npos);
    label.setBackgroundColor(UXColor(1, 2, 3));
    label.setShowBorder(true);
    label.setDrawRoundRect(true);
    label.setRotation(30);
    const std::string text = uxPaintToText(label);
    EXPECT_EQ(uxFindMissing(text, {"fill", "stroke", "rotate 30", "drawText"}), "") << text;
}

TEST(UXPanel, PlacesAndClipsItsChildrenInsideItsPadding)
{
    const UXFixedMeasurer measurer;
    UXPanel panel;
    auto* child = new UXLabel;
    child->setText("child");
    child->setAlign(UXAlign::Client);
    panel.addChild(child);
    panel.setPadding(UXPadding(5, 6, 7, 8));
    panel.setRect(UXRect(0, 0, 100, 50));
    panel.layout();
    EXPECT_EQ(child->getRect(), UXRect(5, 6, 88, 36));
    EXPECT_NE(uxPaintToText(panel).find("drawText"), std::string::npos);
    UXRecordingPaintConfig config;
    panel.paint(&config, UXRect(0, 0, 100, 6));
    EXPECT_EQ(config.getRecording().getText().find("drawText"), std::string::npos)
        << "only the padding is dirty";
}

} // namespace
