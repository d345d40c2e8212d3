#include "ux/ux_virtual_scroll_view.h"

#include "ux/ux_hint_delegate.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

TEST(UXVirtualScrollView, BarsTakeRoomFromTheArea)
{
    struct Case {
        const char* name;
        std::int64_t width, height;
        bool enableHorizontal, enableVertical, always;
        UXSize area;
    };
    const Case cases[] = {
        {"fits exactly", 100, 50, true, true, false, {100, 50}},
        {"too wide", 101, 38, true, true, false, {100, 38}},
        {"too high", 88, 51, true, true, false, {88, 50}},
        {"a bar makes the other", 100, 51, true, true, false, {88, 38}},
        {"and the other way around", 101, 50, true, true, false, {88, 38}},
        {"not enabled", 500, 500, false, false, true, {100, 50}},
        {"always", 1, 1, true, true, true, {88, 38}},
        {"huge", INT64_MAX, 1, true, true, false, {100, 38}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXVirtualScrollView view;
        view.setRect({9, 9, 110, 60});
        view.setPadding({1, 1, 1, 1});
        view.setScrollPadding({4, 4, 4, 4});
        view.setEnableHorizontalScrollBar(c.enableHorizontal, false);
        view.setEnableVerticalScrollBar(c.enableVertical, true);
        view.setAlwaysShowScrollBar(c.always);
        view.setContentWidth(c.width);
        view.setContentHeight(c.height);
        EXPECT_EQ(view.obtainDisplayArea(), c.area);
        EXPECT_EQ(view.obtainScrollContentRect(), UXRect(5, 5, c.area.width, c.area.height));
        EXPECT_EQ(view.hasVerticalScrollBar(), c.area.width < 100);
        EXPECT_EQ(view.hasHorizontalScrollBar(), c.area.height < 50);
        EXPECT_EQ(view.hasScrollBars(), c.area.width < 100 || c.area.height < 50);
    }
    UXVirtualScrollView small;
    small.setRect({0, 0, 5, 5});
    small.setContentHeight(1000);
    EXPECT_EQ(small.obtainDisplayArea(), UXSize(0, 5));
}

namespace {

class Delegate : public UXVirtualScrollViewDelegate {
public:
    std::string log;
    UXVirtualScrollView* destroyed = nullptr;

    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, const UXEvent&) override
    {
        log += "e";
        delete destroyed;
    }
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView*) override { log += "v"; }
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, std::int64_t x, std::int64_t y,
                                               const UXEvent&) override
    {
        log += std::to_string(x) + "," + std::to_string(y) + " ";
    }
};

} // namespace

TEST(UXVirtualScrollView, OffsetsStayInsideTheContent)
{
    UXVirtualScrollView view;
    Delegate delegate;
    view.setDelegate(&delegate);
    view.setRect({0, 0, 112, 62});
    view.setContentWidth(1000);
    view.setContentHeight(INT64_MAX);
    EXPECT_EQ(delegate.log, "");
    view.setContentOffsetX(-3);
    view.setContentOffsetX(40);
    view.setContentOffsetX(5000);
    view.setContentOffsetY(INT64_MAX);
    EXPECT_EQ(view.getContentOffsetX(), 900);
    EXPECT_EQ(view.getContentOffsetY(), INT64_MAX - 50);
    EXPECT_EQ(delegate.log, "ev40,0 ev860,0 ev0," + std::to_string(INT64_MAX - 50) + " ");

    delegate.log.clear();
    view.setContentHeight(-1);
    EXPECT_EQ(view.getContentHeight(), 0);
    EXPECT_EQ(view.getContentOffsetY(), 0);
    view.setRect({0, 0, 612, 62});
    EXPECT_EQ(view.getContentOffsetX(), 388) << "without the vertical bar 612 show";

    for (const double distance : {static_cast<double>(NAN), 0.4, 1e300, 3.0})
        view.linkedScroll(distance, true);
    EXPECT_EQ(view.getContentOffsetX(), 388);
    view.linkedScroll(-8.4, true);
    EXPECT_EQ(view.getContentOffsetX(), 380);
    view.linkedScroll(-1e300, true);
    EXPECT_EQ(view.getContentOffsetX(), 0);
}

TEST(UXVirtualScrollView, DelegatesMayDestroyIt)
{
    Delegate delegate;
    auto* view = new UXVirtualScrollView;
    view->setDelegate(&delegate);
    view->setRect({0, 0, 50, 50});
    view->setContentHeight(100);
    delegate.destroyed = view;
    view->setContentOffsetY(10);
    EXPECT_EQ(delegate.log, "e");
}

TEST(UXHintDelegate, KeepsWhatShows)
{
    auto owner = std::make_unique<UXObject>();
    UXHintDelegate hint(owner.get());
    UXHintInfo info, disabled(false);
    info.title = "Total";
    hint.showHint({3, 4}, nullptr, &info);
    EXPECT_TRUE(hint.getHintVisible());
    EXPECT_EQ(hint.getHintPoint(), UXPoint(3, 4));
    EXPECT_EQ(hint.getHintInfo(), info);
    hint.showHint({5, 5}, nullptr, &disabled);
    EXPECT_FALSE(hint.getHintVisible());
    hint.setShowHint(false);
    hint.showHint({3, 4}, nullptr, &info);
    EXPECT_FALSE(hint.getHintVisible());
    hint.setHintVisible({3, 4}, nullptr, &info);
    EXPECT_TRUE(hint.getHintVisible());
    hint.setHintVisible({3, 4}, nullptr, nullptr);
    EXPECT_FALSE(hint.getHintVisible());
    owner.reset();
    EXPECT_EQ(hint.getHintOwner(), nullptr);
}
