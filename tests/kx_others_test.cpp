#include "kx_others.h"

#include <gtest/gtest.h>

#include <limits>

TEST(KXOthers, GathersTheSmallMembers)
{
    constexpr double null = std::numeric_limits<double>::quiet_NaN();
    constexpr double greatest = (std::numeric_limits<double>::max)();
    using Indexes = std::vector<std::uint64_t>;
    struct Case {
        const char* name;
        std::vector<double> values;
        KXOthersRule rule;
        Indexes gathered;
        double sum;
    };
    const Case cases[] = {
        {"no rule", {5, 4, 1}, {}, {}, 0},
        {"beyond a count", {1, 5, 2, 4}, {2, 0, {}}, {0, 2}, 3},
        {"of equals the later", {3, 3, 3, 3}, {2, 0, {}}, {2, 3}, 6},
        {"a single one stays", {5, 4, 1}, {2, 0, {}}, {}, 0},
        {"below a share", {90, 1, 8, 1}, {{}, 0.02, {}}, {1, 3}, 2},
        {"a single one below it stays", {90, 1, 9}, {{}, 0.02, {}}, {}, 0},
        {"both rules", {50, 30, 18, 1, 1}, {2, 0.02, {}}, {2, 3, 4}, 20},
        {"by magnitude", {-50, 1, -2, 40}, {2, 0, {}}, {1, 2}, -1},
        {"nulls count nowhere", {null, 5, null, 4, 1, 2}, {2, 0, {}}, {4, 5}, 3},
        {"the host's joins", {9, 7, 5, 1}, {2, 0, 0}, {0, 3}, 10},
        {"the host's alone stays", {9, 7, 5}, {2, 0, 0}, {}, 0},
        {"none keeps a place", {1, 2}, {0, 0, {}}, {0, 1}, 3},
        {"all zero", {0, 0, 0}, {{}, 0.1, {}}, {}, 0},
        {"saturated", {greatest, greatest, greatest}, {0, 0, {}}, {0, 1, 2}, greatest},
        {"no member", {}, {2, 0.5, 3}, {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const KXOthers others = kxGatherOthers(c.values, c.rule);
        EXPECT_EQ(others.gathered, c.gathered);
        EXPECT_EQ(others.sum, c.sum);
        EXPECT_EQ(others.kept.size() + others.gathered.size(), c.values.size());
    }
}
