#include "ux/ux_scroll_view.h"

#include "ux/ux_scroll_content_view.h"
#include "ux/ux_scroll_view_delegate.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_test_event.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

class Listener : public UXScrollViewDelegate {
public:
    std::string log;
    UXScrollView* destroyed = nullptr;

    void scrollViewWillStartScrolling(UXScrollView*) override { log += "<"; }
    void scrollViewContentOffsetChanged(UXScrollView*, std::int64_t x, std::int64_t y) override
    {
        log += std::to_string(x) + "," + std::to_string(y);
        delete destroyed;
    }
    void scrollViewDidEndScrolling(UXScrollView*) override { log += ">"; }
};

} // namespace

TEST(UXScrollView, ContentMovesWithTheWheelUntilADelegateDestroysIt)
{
    auto* made = new UXScrollView;
    UXScrollView& view = *made;
    Listener listener;
    view.setDelegate(&listener);
    view.setRect({10, 10, 110, 60});
    view.setPadding({5, 5, 5, 5});
    view.setContentSize({80, 500});
    EXPECT_EQ(view.getScroller()->getRect(), UXRect(5, 5, 100, 50));
    EXPECT_EQ(view.getContentView()->getRect(), UXRect(0, 0, 80, 500));
    view.getScroller()->mouseWheel(uxMakeWheelEvent(0, 1));
    EXPECT_EQ(view.getContentView()->getRect(), UXRect(0, -48, 80, 500));
    EXPECT_EQ(listener.log, "<0,48>");
    view.setContentSize({80, -1});
    EXPECT_EQ(view.getContentView()->getRect(), UXRect(0, 0, 80, 0));
    EXPECT_EQ(listener.log, "<0,48>0,0");

    view.setContentSize({80, 500});
    listener.log.clear();
    listener.destroyed = made;
    view.getScroller()->mouseWheel(uxMakeWheelEvent(0, 1));
    EXPECT_EQ(listener.log, "<0,48");
}
