#include "kx_value_list_chart.h"

#include "kx_chart_property.h"
#include "kx_scrollable_value_list.h"
#include "kx_table_data_provider.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Texts = std::vector<std::string>;

/** A value list over a table, without a title. */
class KXValueListChartTest : public testing::Test {
protected:
    KXValueListChartTest() { chart.getChartProperty()->setShowTitle(false); }

    void layOut(const UXSize& size)
    {
        table.serve(chart);
        chart.setRect({0, 0, size.width, size.height});
        chart.setRequireToVerifyLayout(true, true);
        chart.layout();
    }
    /** @return where the texts of a group stand */
    std::map<std::string, UXDoubleRect> obtainPlaces(std::uint64_t group)
    {
        std::map<std::string, UXDoubleRect> places;
        for (const KXFigureChart::PlacedText& text : chart.getPlacedTexts())
            if (text.item.group == group)
                places[text.text] = text.rect;
        return places;
    }

    const UXFixedMeasurer measurer;
    KXTableDataProvider table;
    KXValueListChart chart;
};

TEST_F(KXValueListChartTest, CaptionsStandWhereTheStyleSays)
{
    table.addMeasure("Jobs", {12});
    table.addMeasure("Change", {-3});
    const std::tuple<KXValueListBaseItemStyle, int, int> cases[] = {
        {KXValueListBaseItemStyle::Left, -1, 0},
        {KXValueListBaseItemStyle::Above, 0, -1},
        {KXValueListBaseItemStyle::Below, 0, 1},
        {KXValueListBaseItemStyle::Right, 1, 0},
    };
    for (const auto& [style, across, down] : cases) {
        SCOPED_TRACE(static_cast<int>(style));
        chart.setItemStyle(static_cast<int>(style));
        layOut({300, 200});
        std::map<std::string, UXDoubleRect> places = obtainPlaces(0);
        const UXDoubleRect caption = places["Jobs"], value = places["12"];
        EXPECT_EQ((caption.x > value.x) - (caption.x < value.x), across);
        if (across == 0) {
            EXPECT_EQ((caption.y > value.y) - (caption.y < value.y), down);
        }
        EXPECT_EQ(obtainPlaces(1)["-3"].height, value.height) << "one size";
    }
    EXPECT_EQ(chart.getValueList().getItems().at(1).getCaption(), "Change");

    KXChartDataFormat first;
    first.setSuffix(" jobs");
    chart.setDataFormats({first});
    layOut({300, 200});
    EXPECT_EQ(obtainPlaces(0).count("12 jobs") + obtainPlaces(1).count("-3"), 2) << "each in its own format";
}

TEST_F(KXValueListChartTest, MembersHaveFurtherMeasuresColumnsAndScroll)
{
    Texts names;
    for (int i = 0; i < 500; ++i)
        names.push_back("n" + std::to_string(i));
    std::vector<double> values(500, 7);
    values[1] = std::nan("");
    table.addDimension("Name", names);
    for (const char* label : {"Jobs", "Before", "Most", "Unused"})
        table.addMeasure(label, values);
    layOut({300, 200});
    EXPECT_EQ(chart.getShownColumnCount(), 1);
    EXPECT_LT(chart.getLaidOutItems().size(), 12);
    KXChartDataFormat tenths;
    tenths.setDecimals(1);
    chart.setDataFormats({KXChartDataFormat(), tenths});
    layOut({300, 200});
    EXPECT_EQ(uxFindMissing(uxPaintToText(chart), {"\"n0\"", "\"7\"", "\"--\"", "\"Before 7.0   Most 7\""}),
              "");
    chart.showItem({0, 499, 0});
    chart.layout();
    EXPECT_EQ(chart.getValueList().getItems().back().getCaption(), "n499");
    layOut({900, 200});
    EXPECT_GT(chart.getShownColumnCount(), 1);
    chart.setColumnCount(1);
    layOut({900, 200});
    EXPECT_EQ(chart.getShownColumnCount(), 1);
}

} // namespace
