#include "kx_enum_map.h"

#include "kx_line_chart_options.h"
#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

class LineCap : public UXJsonObject {
public:
    void customSerialize() override { kxSerializeEnum(this, "m_cap", cap); }
    std::string customSerializeTypeID() override { return "LineCap"; }
    bool customDeserialize() override { return kxDeserializeEnum(this, "m_cap", cap); }

    KXChartLineCapStyle cap = KXChartLineCapStyle::Square;
};

} // namespace

TEST(KXEnumMap, ReadsExactNamesOnly)
{
    const std::tuple<const char*, const char*, bool, KXChartLineCapStyle> cases[] = {
        {"a name", R"({"m_cap":"Round"})", true, KXChartLineCapStyle::Round},
        {"wrong case", R"({"m_cap":"round"})", false, KXChartLineCapStyle::Square},
        {"leading blank", R"({"m_cap":" Round"})", false, KXChartLineCapStyle::Square},
        {"no name", R"({"m_cap":""})", false, KXChartLineCapStyle::Square},
        {"a number", R"({"m_cap":1})", false, KXChartLineCapStyle::Square},
        {"absent", R"({"m_gap":"Round"})", false, KXChartLineCapStyle::Square},
    };
    for (const auto& [name, document, read, expected] : cases) {
        SCOPED_TRACE(name);
        LineCap object;
        EXPECT_EQ(object.deserialize(document), read);
        EXPECT_EQ(object.cap, expected);
    }
}

TEST(KXEnumMap, WritesTheNameOrNothing)
{
    LineCap object;
    object.cap = KXChartLineCapStyle::Round;
    EXPECT_NE(object.serialize().find(R"("m_cap":"Round")"), std::string::npos);
    for (const int value : {3, -1, (std::numeric_limits<int>::max)()}) {
        object.cap = static_cast<KXChartLineCapStyle>(value);
        EXPECT_NE(object.serialize().find(R"("m_cap":"")"), std::string::npos) << value;
    }
    EXPECT_FALSE(object.deserialize(object.serialize()));
}
