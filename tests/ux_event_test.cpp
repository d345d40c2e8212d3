#include "ux/ux_event.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

TEST(UXEvent, CopiesShareOneQueueOfActions)
{
    std::vector<int> order;
    const UXEvent event;
    UXEvent copy = event;
    UXEvent moved = std::move(copy);
    copy.postAction([&] { order.push_back(1); });
    moved.postAction([&] { order.push_back(2); });
    event.postAction(nullptr);
    event.postAction([&, moved] {
        order.push_back(3);
        moved.postAction([&] { order.push_back(4); });
    });

    UXEvent().runPostedActions();
    EXPECT_TRUE(order.empty());
    moved.runPostedActions();
    event.runPostedActions();
    EXPECT_EQ(order, (std::vector{1, 2, 3, 4}));
}

TEST(UXEvent, AnActionMayDestroyItsEventOrRunTheRest)
{
    std::vector<int> order;
    auto event = std::make_unique<UXEvent>();
    event->postAction([&] {
        order.push_back(1);
        event->runPostedActions();
        event.reset();
    });
    event->postAction([&] { order.push_back(2); });
    event->runPostedActions();
    EXPECT_EQ(order, (std::vector{1, 2}));
    EXPECT_FALSE(event);
}

TEST(UXEvent, AnActionThatThrowsIsGoneAndTheOthersStay)
{
    int runs = 0;
    const UXEvent event;
    event.postAction([] { throw 1; });
    event.postAction([&] { ++runs; });
    EXPECT_ANY_THROW(event.runPostedActions());
    EXPECT_EQ(runs, 0);
    event.runPostedActions();
    EXPECT_EQ(runs, 1);
}
