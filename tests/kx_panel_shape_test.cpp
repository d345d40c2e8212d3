#include "kx_panel_items.h"
#include "kx_panel_shape.h"

#include <gtest/gtest.h>

#include <vector>

TEST(KXPanelShape, HoldsWhatLiesInside)
{
    struct Case {
        const char* name;
        KXPanelShape shape;
        UXDoubleRect bounds;
        UXDoublePoint inside, outside;
    };
    const UXDoublePoint center(100, 100);
    const std::vector<UXDoublePoint> notched{{0, 0}, {40, 0}, {40, 40}, {20, 10}, {0, 40}};
    const Case cases[] = {
        {"a rectangle", UXDoubleRect(10, 20, 30, 40), {10, 20, 30, 40}, {39.9, 59.9}, {40, 30}},
        {"a quarter", KXSector{center, 0, 50, 0, 90}, {100, 100, 50, 50}, {130, 130}, {140, 140}},
        {"over the start",
         KXSector{center, 0, 50, 350, 20},
         {100, 100 - 8.682, 50, 17.365},
         {140, 97},
         {60, 97}},
        {"backwards from the start",
         KXSector{center, 0, 50, -90, 90},
         {100, 50, 50, 50},
         {110, 60},
         {90, 60}},
        {"the hole of a ring", KXSector{center, 30, 50, 0, 360}, {50, 50, 100, 100}, {100, 60}, {100, 75}},
        {"a hollow corner", notched, {0, 0, 40, 40}, {5, 25}, {20, 25}},
        {"nothing", KXPanelShape(), {}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXDoubleRect& bounds = c.shape.getBounds();
        EXPECT_NEAR(bounds.x, c.bounds.x, 1e-3);
        EXPECT_NEAR(bounds.y, c.bounds.y, 1e-3);
        EXPECT_NEAR(bounds.width, c.bounds.width, 1e-3);
        EXPECT_NEAR(bounds.height, c.bounds.height, 1e-3);
        EXPECT_EQ(c.shape.holdsPoint(c.inside), bounds.width > 0);
        EXPECT_FALSE(c.shape.holdsPoint(c.outside));
        EXPECT_NEAR(c.shape.obtainScaled(1.0).getBounds().height, bounds.height, 1e-9);
    }
    const KXPanelShape slice = KXSector{center, 0, 100, -90, 180};
    EXPECT_TRUE(slice.holdsPoint(slice.obtainMiddle()));
    EXPECT_TRUE(slice.holdsRect({110, 80, 40, 40}));
    EXPECT_FALSE(slice.holdsRect({90, 90, 20, 20}));
}

TEST(KXPanelItems, AreFoundByNameAndByPlace)
{
    std::vector<KXPanelItem> items;
    for (std::uint64_t i = 0; i < 100; ++i)
        items.push_back({{0, 99 - i, 0}, UXDoubleRect(static_cast<double>(i) * 10, 0, 15, 10)});
    KXPanelItems panel;
    panel.set(items, {0, 0, 1000, 10});
    EXPECT_EQ(panel.find({0, 99, 0}), 0);
    EXPECT_EQ(panel.find({0, 0, 0}), 99);
    EXPECT_EQ(panel.find({0, 0, 1}), std::nullopt);
    EXPECT_EQ(panel.findAt({503, 5}), 50) << "in front of the one before";
    EXPECT_EQ(panel.findAt({509, 5}), 50);
    EXPECT_EQ(panel.findAt({2000, 5}), std::nullopt);
}
