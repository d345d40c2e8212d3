#include "kx_enum_map.h"

#include "kx_axis_chart_label_options.h"
#include "kx_axis_chart_orientation.h"
#include "kx_axis_chart_type.h"
#include "kx_axis_tick_label_options.h"
#include "kx_bar_label_options.h"
#include "kx_chart_data_density.h"
#include "kx_chart_data_format_options.h"
#include "kx_chart_data_style.h"
#include "kx_chart_data_type.h"
#include "kx_chart_line_styles.h"
#include "kx_chart_slider_type.h"
#include "kx_control_chart_style.h"
#include "kx_gauge_chart_options.h"
#include "kx_kpi_chart_main_display.h"
#include "kx_line_label_position.h"
#include "kx_pie_chart_slice_style.h"
#include "kx_table_column_header_info_type.h"
#include "kx_table_databar_style.h"
#include "kx_table_panel_type.h"
#include "kx_tornado_chart_stack_style.h"
#include "kx_tree_map_chart_tile_style.h"
#include "kx_trend_chart_diff_display.h"
#include "kx_waterfall_chart_group_value_sort_order.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_json_object.h"
#include "ux/ux_position.h"
#include "ux/ux_symbol_style.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace {

/** Expects that the names stand for 0, 1, 2 and so on, both ways, and that there is no further one. */
template <class E>
void expectNames(const std::string& names)
{
    SCOPED_TRACE(names);
    // A map of its own: asking for a value beyond the list leaves an empty entry in the map that is asked.
    UXEnum::UXEnumMap<E> map = *kxObtainEnumMap<E>();
    std::istringstream list(names);
    std::string name;
    int expected = 0;
    for (; std::getline(list >> std::ws, name, ','); ++expected) {
        EXPECT_EQ(map.obtainName(static_cast<E>(expected)), name);
        E value = static_cast<E>(-1);
        EXPECT_TRUE(map.obtainValue(name, value)) << name;
        EXPECT_EQ(static_cast<int>(value), expected) << name;
    }
    EXPECT_EQ(map.obtainName(static_cast<E>(expected)), "");
}

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
    struct Case {
        const char* name;
        const char* document;
        bool read;
        KXChartLineCapStyle expected;
    };
    const Case cases[] = {
        {"a name", R"({"m_cap":"Round"})", true, KXChartLineCapStyle::Round},
        {"wrong case", R"({"m_cap":"round"})", false, KXChartLineCapStyle::Square},
        {"leading blank", R"({"m_cap":" Round"})", false, KXChartLineCapStyle::Square},
        {"no name", R"({"m_cap":""})", false, KXChartLineCapStyle::Square},
        {"a number", R"({"m_cap":1})", false, KXChartLineCapStyle::Square},
        {"absent", R"({"m_gap":"Round"})", false, KXChartLineCapStyle::Square},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LineCap object;
        EXPECT_EQ(object.deserialize(c.document), c.read);
        EXPECT_EQ(object.cap, c.expected);
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
