#include "ux/ux_enum_map.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

enum class Cap { Butt, Round, Square };

TEST(UXEnumMap, SplitsNamesAtCommas)
{
    struct Case {
        const char* name;
        const char* names;
        std::vector<std::string> expected;
    };
    const Case cases[] = {
        {"a usual list", "Butt, Round, Square", {"Butt", "Round", "Square"}},
        {"no blanks", "Butt,Round", {"Butt", "Round"}},
        {"many blanks", "Butt,   Round", {"Butt", "Round"}},
        {"blanks elsewhere belong to the name", " Butt , Round ", {" Butt ", "Round "}},
        {"a comma at the end", "Butt, Round,", {"Butt", "Round"}},
        {"a comma and blanks at the end", "Butt, Round, ", {"Butt", "Round"}},
        {"an empty name keeps its place", "Butt,, Square", {"Butt", "", "Square"}},
        {"one name", "Butt", {"Butt"}},
        {"nothing", "", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(UXEnum::splitString(c.names), c.expected);
    }
}

TEST(UXEnumMap, FindsValuesByExactName)
{
    UXEnum::UXEnumMap<Cap> map("Butt, Round, Square");
    Cap value = Cap::Square;
    for (const char* unknown : {"round", " Round", "Round ", "Roun", ""}) {
        EXPECT_FALSE(map.obtainValue(unknown, value)) << unknown;
        EXPECT_EQ(value, Cap::Square);
    }
    EXPECT_TRUE(map.obtainValue("Round", value));
    EXPECT_EQ(value, Cap::Round);
    EXPECT_EQ(map.obtainName(Cap::Square), "Square");
    EXPECT_EQ(map.obtainName(static_cast<Cap>(3)), "");
    EXPECT_EQ(map.obtainName(static_cast<Cap>(-1)), "");
    EXPECT_FALSE(map.obtainValue("", value)) << "asked for, the empty name is still none";

    UXEnum::UXEnumMap<Cap> repeated("Butt, Round, Butt");
    EXPECT_TRUE(repeated.obtainValue("Butt", value));
    EXPECT_EQ(value, Cap::Square) << "of a repeated name the later value counts";
    EXPECT_EQ(repeated.obtainName(Cap::Butt), "Butt");
}

} // namespace
