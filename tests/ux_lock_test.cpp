#include "ux/ux_lock.h"

#include <gtest/gtest.h>

#include <thread>

TEST(UXLock, TheHolderTakesItAgainAndOthersWait)
{
    constexpr int rounds = 20000;
    int count = 0;
    const auto add = [&count] {
        for (int i = 0; i < rounds; ++i) {
            const UXLockScope outer;
            const int seen = count;
            {
                const UXLockScope inner;
                std::this_thread::yield();
            }
            count = seen + 1; // loses rounds of the other thread unless it waits
        }
    };
    std::thread other(add);
    add();
    other.join();
    EXPECT_EQ(count, 2 * rounds);
}
