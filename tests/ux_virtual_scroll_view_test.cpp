#include "ux/ux_virtual_scroll_view.h"

#include "ux/ux_recording_paint_config.h"
#include "ux/ux_scroll_bar.h"
#include "ux/ux_scroll_bar_slider.h"
#include "ux/ux_virtual_scroll_view_delegate.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

/** Follows what the user does, as a view with rows or a second view beside it would. */
class ScrollingDelegate : public UXVirtualScrollViewDelegate {
public:
    bool allows = true, links = false, rebuilds = false;
    UXVirtualScrollView* destroyed = nullptr;
    UXObject* unclipped = nullptr;
    std::vector<double> linked;
    std::string log;

    bool shouldClipInScrollArea(UXVirtualScrollView*, UXObject* object) override
    {
        return object != unclipped;
    }
    bool virtualScrollViewShouldTriggerScroll(UXVirtualScrollView*, bool) override { return allows; }
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, const UXEvent&) override
    {
        log += "e";
        delete std::exchange(destroyed, nullptr);
    }
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view) override
    {
        log += "v";
        if (rebuilds) {
            view->clearChildren();
            view->addChild(new UXObject);
        }
    }
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, std::int64_t x, std::int64_t y,
                                               const UXEvent&) override
    {
        log += std::to_string(x) + "," + std::to_string(y) + " ";
    }
    bool shouldLinkScrolling(UXVirtualScrollView*) override { return links; }
    void linkedScrollingRequested(UXVirtualScrollView*, double distance, const UXEvent&, bool) override
    {
        linked.push_back(distance);
    }
};

class ScrolledView : public UXVirtualScrollView {
public:
    ScrollingDelegate delegate;
    std::string log;

    ScrolledView()
    {
        setDelegate(&delegate);
        setRect({0, 0, 112, 112});
        setContentWidth(100);
        setContentHeight(1000);
    }

protected:
    void contentOffsetChanged(const UXEvent& event, UXScrollBar* bar) override
    {
        log += bar ? "b" : "c";
        UXVirtualScrollView::contentOffsetChanged(event, bar);
    }
    void userScrollingWillStart(const UXEvent&) override { log += "<"; }
    void userScrollingDidEnd(const UXEvent&) override { log += ">"; }
};

} // namespace

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

TEST(UXVirtualScrollView, OffsetsStayInsideTheContent)
{
    UXVirtualScrollView view;
    ScrollingDelegate delegate;
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

TEST(UXScrollBar, BarsStandBesideTheContent)
{
    ScrolledView view;
    ASSERT_NE(view.getVerticalScrollBar(), nullptr);
    EXPECT_EQ(view.getHorizontalScrollBar(), nullptr);
    EXPECT_EQ(view.getVerticalScrollBar()->getRect(), UXRect(100, 0, 12, 112));
    EXPECT_EQ(view.getVerticalScrollBar()->getSlider()->getRect(), UXRect(0, 0, 12, 24));
    view.setContentWidth(200);
    EXPECT_EQ(view.getVerticalScrollBar()->getRect(), UXRect(100, 0, 12, 100));
    EXPECT_EQ(view.getHorizontalScrollBar()->getRect(), UXRect(0, 100, 100, 12));
    view.setContentOffsetX(100);
    EXPECT_EQ(view.getHorizontalScrollBar()->obtainSliderRect(), UXRect(50, 0, 50, 12));

    auto* row = new UXObject;
    view.addChild(row);
    view.bringChildToFront(row);
    EXPECT_EQ(view.getChild(0), row) << "bars stay in front";
    view.clearChildren();
    EXPECT_EQ(view.getChildrenCount(), 2u);
    view.setContentWidth(0);
    view.setContentHeight(0);
    EXPECT_FALSE(view.hasScrollBars());
    EXPECT_EQ(view.getVerticalScrollBar(), nullptr);
}

TEST(UXScrollBar, SlidersAreDragged)
{
    ScrolledView view;
    view.delegate.links = true;
    view.delegate.rebuilds = true;
    UXScrollBarSlider* slider = view.getVerticalScrollBar()->getSlider();
    slider->mouseDragging(uxMakeEventAt(105, 60));
    EXPECT_EQ(view.getContentOffsetY(), 0) << "not pressed";
    slider->mouseDown(uxMakeEventAt(105, 10));
    slider->mouseDragging(uxMakeEventAt(105, 54));
    EXPECT_EQ(view.getContentOffsetY(), 444) << "44 of the free 88 move 444 of 888";
    slider->mouseDragging(uxMakeEventAt(500, 10));
    EXPECT_EQ(view.getContentOffsetY(), 0);
    slider->mouseDragging(uxMakeEventAt(105, 100000));
    EXPECT_EQ(view.getContentOffsetY(), 888);
    slider->mouseUp(uxMakeEventAt(105, 100000));
    slider->mouseDragging(uxMakeEventAt(105, 10));
    EXPECT_EQ(view.getContentOffsetY(), 888) << "released";
    EXPECT_EQ(view.log, "<bbb>");
    EXPECT_EQ(view.delegate.linked, (std::vector<double>{444, -444, 888}));
}

TEST(UXScrollBar, ClicksBesideTheSliderMoveAPage)
{
    ScrolledView view;
    UXScrollBar* bar = view.getVerticalScrollBar();
    bar->mouseDown(uxMakeEventAt(105, 90));
    EXPECT_EQ(view.getContentOffsetY(), 101) << "nine tenths of 112";
    bar->mouseDown(uxMakeEventAt(105, 90));
    bar->mouseDown(uxMakeEventAt(105, 2));
    EXPECT_EQ(view.getContentOffsetY(), 101);
    bar->mouseDown(uxMakeEventAt(105, 2));
    EXPECT_EQ(view.getContentOffsetY(), 0);
    EXPECT_EQ(view.log, "<b><b><b><b>");
    view.delegate.allows = false;
    bar->mouseDown(uxMakeEventAt(105, 90));
    EXPECT_EQ(view.getContentOffsetY(), 0);
}

TEST(UXVirtualScrollView, WheelAndKeysScroll)
{
    struct Case {
        const char* name;
        UXDoublePoint wheel;
        UXKeyCode key;
        bool shift;
        std::int64_t contentWidth, contentHeight, offset;
        UXPoint expected;
        bool handled;
    };
    const UXKeyCode none{};
    const Case cases[] = {
        {"wheel down", {0, 1}, none, false, 50, 1000, 0, {0, 48}, true},
        {"wheel up at the start", {0, -1}, none, false, 50, 1000, 0, {0, 0}, true},
        {"sideways", {2, 0}, none, false, 500, 1000, 0, {96, 0}, true},
        {"with Shift", {0, 1}, none, true, 500, 1000, 0, {48, 0}, true},
        {"only sideways to go", {0, 1}, none, false, 500, 50, 0, {48, 0}, true},
        {"nothing to scroll", {0, 1}, none, false, 50, 50, 0, {0, 0}, false},
        {"no number", {NAN, NAN}, none, false, 500, 1000, 0, {0, 0}, false},
        {"Down", {}, UXKeyCode::Down, false, 50, 1000, 0, {0, 40}, true},
        {"Right", {}, UXKeyCode::Right, false, 500, 1000, 0, {40, 0}, true},
        {"Left at the start", {}, UXKeyCode::Left, false, 500, 1000, 0, {0, 0}, true},
        {"Page Down", {}, UXKeyCode::PageDown, false, 50, 1000, 0, {0, 101}, true},
        {"Shift and Space", {}, UXKeyCode::Space, true, 50, 1000, 500, {0, 399}, true},
        {"End", {}, UXKeyCode::End, false, 50, 1000, 0, {0, 888}, true},
        {"End sideways", {}, UXKeyCode::End, false, 500, 50, 0, {388, 0}, true},
        {"Home of the largest", {}, UXKeyCode::Home, false, 50, INT64_MAX, INT64_MAX, {0, 0}, true},
        {"Escape is not for it", {}, UXKeyCode::Escape, false, 50, 1000, 0, {0, 0}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScrolledView view;
        view.setContentWidth(c.contentWidth);
        view.setContentHeight(c.contentHeight);
        view.setContentOffsetY(c.offset);
        UXEvent event = uxMakeKeyEvent(c.key);
        event.setWheelDelta(c.wheel);
        if (c.shift)
            event.addEventKey(UXEventKey::Shift);
        EXPECT_EQ(c.key == none ? view.mouseWheel(event) : view.keyDown(event), c.handled);
        EXPECT_EQ(view.getContentOffsetX(), c.expected.x);
        EXPECT_EQ(view.getContentOffsetY(), c.expected.y);
    }
}

TEST(UXVirtualScrollView, DelegatesMayDestroyIt)
{
    for (const char* way : {"wheel", "key", "bar", "slider", "program"}) {
        SCOPED_TRACE(way);
        ScrollingDelegate delegate;
        auto* view = new UXVirtualScrollView;
        view->setRect({0, 0, 112, 112});
        view->setContentHeight(1000);
        view->setDelegate(&delegate);
        UXScrollBar* bar = view->getVerticalScrollBar();
        const UXObjectWatcher watcher(view);
        delegate.destroyed = view;
        UXEvent event = uxMakeEventAt(105, 90);
        event.setWheelDelta({0, 1});
        event.setKeyCode(static_cast<int>(UXKeyCode::End));
        if (*way == 'w')
            view->mouseWheel(event);
        else if (*way == 'k')
            view->keyDown(event);
        else if (*way == 'b')
            bar->mouseDown(event);
        else if (*way == 's')
            bar->getSlider()->mouseDown(uxMakeEventAt(105, 5)), bar->getSlider()->mouseDragging(event);
        else
            view->setContentOffsetY(10);
        EXPECT_FALSE(watcher.isAlive());
        EXPECT_EQ(delegate.log, "e");
    }
}

TEST(UXVirtualScrollView, ContentIsPaintedInsideItsArea)
{
    class Row : public UXObject {
    public:
        std::vector<UXRect> painted;
        void paint(UXPaintConfig*, UXRect dirtyRect) override { painted.push_back(dirtyRect); }
    };
    ScrolledView view;
    auto *inside = new Row, *outside = new Row, *header = new Row;
    inside->setRect({0, 90, 112, 40});
    outside->setRect({0, 400, 112, 40});
    header->setRect({50, 0, 62, 20});
    for (Row* row : {inside, outside, header})
        view.addChild(row);
    view.delegate.unclipped = header;
    UXRecordingPaintConfig config;
    view.paint(&config, view.getBoundingRect());
    EXPECT_EQ(inside->painted, std::vector<UXRect>{UXRect(0, -90, 100, 112)});
    EXPECT_TRUE(outside->painted.empty());
    EXPECT_EQ(header->painted, std::vector<UXRect>{UXRect(-50, 0, 112, 112)});
    EXPECT_EQ(config.getClip(), nullptr);
}
