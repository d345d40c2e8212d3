#include "member_finder.h"
#include "sql_data_set.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <span>
#include <string>
#include <vector>

TEST(MemberFinder, FindsPagesAmongManyMembers)
{
    constexpr std::uint64_t count = 50'000;
    std::vector<SqlMember> members(count);
    for (std::uint64_t i = 0; i < count; ++i)
        members[i].text = "MEMBER " + std::to_string(i);
    members[40'000].text = "Zürich";
    MemberFinder finder;
    const auto find = [&](const std::string& text, std::uint64_t first, std::size_t most) {
        std::vector<std::uint64_t> page(most);
        std::span<std::uint64_t> found(page);
        finder.find(members, text, first, found);
        return std::vector<std::uint64_t>(found.begin(), found.end());
    };
    using Found = std::vector<std::uint64_t>;
    EXPECT_EQ(find("member 1638", 0, 3), (Found{1638, 16'380, 16'381}));
    EXPECT_EQ(find("member 1638", 3, 30),
              (Found{16'382, 16'383, 16'384, 16'385, 16'386, 16'387, 16'388, 16'389}))
        << "further ones, past the texts that were copied at once";
    EXPECT_EQ(find("member 1638", 1, 2), (Found{16'380, 16'381})) << "back again";
    EXPECT_EQ(find("zuri", 0, 3), (Found{40'000}));
    EXPECT_EQ(find("49999", 0, 3), (Found{49'999}));
    EXPECT_EQ(find("none", 0, 3), Found{});
    EXPECT_EQ(find("zuri", 0, 3), (Found{40'000})) << "after all were copied";
    EXPECT_EQ(find(std::string("0\0m", 3), 0, 3), Found{}) << "across two members";
}
