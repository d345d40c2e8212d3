#include "kx_axis_property.h"
#include "kx_bar_chart.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_layout.h"
#include "kx_chart_items.h"
#include "kx_heat_map_raster.h"
#include "kx_highlighted_parts.h"
#include "kx_line_edges.h"
#include "kx_load_chart.h"
#include "kx_pie_chart.h"
#include "kx_table_data_provider.h"
#include "kx_tree_map_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_painter.h"
#include "ux/ux_recording_paint_config.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/** Two series of which parts are chosen elsewhere. */
class Host : public KXTableDataProvider {
public:
    Host()
    {
        addDimension("Category", std::vector<std::string>{"one", "two", "three"});
        addMeasure("First", {40, -20, 10});
        addMeasure("Second", {40, 20, none});
    }
    bool obtainHighlightedValues(KXChartDataUser*, const KXIndexPath& first, std::size_t,
                                 std::span<double> parts) override
    {
        const std::vector<double> own[] = {{10, -30, none}, {20, -5, 3}};
        std::copy_n(own[first[0]].begin(), parts.size(), parts.begin());
        return true;
    }
};

TEST(KXHighlightedParts, StayBetweenZeroAndTheirValues)
{
    struct Case {
        const char* name;
        double part, value, drawn, share;
    };
    const Case cases[] = {
        {"a part", 3, 4, 3, 0.75},       {"below zero", -1, -4, -1, 0.25}, {"more than all", 5, 4, 4, 1},
        {"the other way", -1, 4, 0, 0},  {"null", none, 4, 0, 0},          {"of zero", 0, 0, 0, 0},
        {"infinite", INFINITY, 4, 4, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const KXHighlightedParts parts({c.part}, {&c.value, 1});
        EXPECT_EQ(parts.obtainPart(0), c.drawn);
        EXPECT_EQ(KXHighlightedParts::obtainShare(parts.obtainPart(0), c.value), c.share);
    }
    EXPECT_TRUE(std::isnan(KXHighlightedParts({3}, {&none, 1}).obtainPart(0))) << "of a null";
    EXPECT_EQ(KXHighlightedParts::obtainShare(none, 4), 1) << "nothing is chosen";
}

/** @return how long all rectangles of an opacity are together */
double sumLengths(const std::string& drawn, double opacity)
{
    double sum = 0, alpha = 0;
    std::istringstream lines(drawn);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == "setColor")
            std::sscanf(line.c_str(), "setColor %*d,%*d,%*d,%lf", &alpha);
        for (double height = 0; word == "drawRects" && words >> word; word = "drawRects")
            if (std::sscanf(word.c_str(), "%*f,%*f,%*f,%lf", &height) == 1 && alpha == opacity)
                sum += height;
    }
    return sum;
}

/** Side by side or on each other: of each bar the part is drawn that begins where the bar does. */
TEST(KXHighlightedParts, BarsAreDrawnInFullAsFarAsTheirParts)
{
    constexpr double pixels = 2; // to which edges move
    const UXFixedMeasurer measurer;
    for (const bool isStacked : {false, true}) {
        SCOPED_TRACE(isStacked);
        Host host;
        KXBarChart chart;
        chart.getYAxisProperty()->setIsStacked(isStacked);
        kxLoad(chart, host, {0, 0, 400, 300});
        const KXBarChartDataView& view = chart.getDataView();
        const double shares[] = {0.25, 0.5, 1, 0, 0}; // by categories, one bar after the other
        double whole = 0, full = 0;
        ASSERT_EQ(view.getBars().size(), std::size(shares));
        for (std::size_t i = 0; i < std::size(shares); ++i) {
            EXPECT_EQ(view.obtainFullShare(i), shares[i]) << i;
            const double length = view.getBars()[i].rect.height;
            whole += shares[i] < 1 ? length : 0;
            full += shares[i] * length;
        }
        UXRecordingPaintConfig config;
        UXPainter* painter = uxCreatePainter(&config);
        view.paint(*painter, {0, 0, 400, 300});
        uxDestroyPainter(painter);
        const std::string drawn = config.getRecording().getText();
        EXPECT_NEAR(sumLengths(drawn, 1), full, pixels) << drawn;
        EXPECT_NEAR(sumLengths(drawn, chart.obtainDimmedOpacity()), whole, pixels) << drawn;
        EXPECT_EQ(chart.obtainItemHint({0, 0, 0}).rows.front().value, "10 of 40");
    }
}

TEST(KXHighlightedParts, APartOfASliceIsPartOfItsAngle)
{
    const UXFixedMeasurer measurer;
    Host host;
    KXPieChart chart;
    kxLoad(chart, host, {0, 0, 400, 300});
    const std::vector<KXPanelItem>& items = chart.getLaidOutItems();
    ASSERT_FALSE(items.empty());
    EXPECT_EQ(items[0].share, 0.25);
    const KXSector whole = *items[0].shape.obtainSector(),
                   part = *items[0].shape.obtainPart(0.25).obtainSector();
    EXPECT_EQ(part.startDegrees, whole.startDegrees);
    EXPECT_EQ(part.sweepDegrees, whole.sweepDegrees / 4);
    EXPECT_EQ(KXPanelShape(UXDoubleRect(1, 2, 8, 4)).obtainPart(0.25).getBounds(), UXDoubleRect(1, 5, 8, 1));
}

/** Whole slices and tiles stand below their parts in light, also where nothing else stands out. */
TEST(KXHighlightedParts, ThePanelsPaintTheRestInLight)
{
    const UXFixedMeasurer measurer;
    for (const bool isPie : {true, false}) {
        SCOPED_TRACE(isPie);
        Host host;
        std::unique_ptr<KXMemberPanelChart> chart;
        if (isPie)
            chart = std::make_unique<KXPieChart>();
        else
            chart = std::make_unique<KXTreeMapChart>();
        kxLoad(*chart, host, {0, 0, 400, 300});
        const std::vector<KXPanelItem>& items = chart->getLaidOutItems();
        ASSERT_FALSE(items.empty());
        ASSERT_LT(items[0].share, 1);
        UXColor light = items[0].color;
        light.alpha = chart->obtainDimmedOpacity();
        EXPECT_LT(light.alpha, 1);
        EXPECT_EQ(items[0].light, light);
        const std::string drawn = uxPaintToText(*chart);
        const auto obtainLine = [](const UXColor& color) {
            char line[64];
            std::snprintf(line, sizeof line, "setColor %d,%d,%d,%g", color.red, color.green, color.blue,
                          color.alpha);
            return std::string(line);
        };
        EXPECT_EQ(uxFindMissing(drawn, {obtainLine(light).c_str(), obtainLine(items[0].color).c_str()}), "")
            << drawn;
    }
}

/** A line of parts runs below that of the values; on others it starts where its series does. */
TEST(KXHighlightedParts, AreasEndWhereTheirPartsDo)
{
    const std::vector<double> low{10, 20}, high{30, none}, lowParts{5, 0}, highParts{15, none};
    KXAxisChartStacks source;
    source.series = {{0, low, {}, lowParts}, {1, high, {}, highParts}};
    source.end = 2;
    for (const bool isStacked : {false, true}) {
        SCOPED_TRACE(isStacked);
        source.form = isStacked ? KXAxisChartStacking::Stacked : KXAxisChartStacking::Plain;
        KXLineEdges edges;
        edges.take(source, KXLineNullHandling::Gap);
        EXPECT_EQ(edges.getPartLine(0)[0], 5);
        EXPECT_EQ(edges.getPartLine(0)[1], 0);
        EXPECT_EQ(edges.getPartLine(1)[0], isStacked ? 25 : 15);
        EXPECT_EQ(std::isnan(edges.getPartLine(1)[1]), !isStacked) << "a null";
    }
}

/** Cells without room for a part are the more opaque the larger it is. */
TEST(KXHighlightedParts, SmallCellsFadeWithTheirParts)
{
    const std::vector<double> values{4, 4, 4}, parts{4, 2, 0};
    KXHeatMapCells cells{values, 1, 3, {0, 4, 0, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}, 0}, {}};
    cells.parts = parts;
    cells.lightOpacity = 0.2;
    const std::vector<KXPixelLine> rows{{{0, 1}}}, columns{{{0, 1}}, {{1, 2}}, {{2, 3}}};
    const UXImage image = kxDrawHeatMapRaster(cells, KXHeatMapColors(cells.scale), rows, columns, {});
    const auto obtainAlpha = [&](std::size_t x) { return image.getPixels()[x] >> 24; };
    EXPECT_EQ(obtainAlpha(0), 255U);
    EXPECT_NEAR(obtainAlpha(1), 0.6 * 255, 1);
    EXPECT_NEAR(obtainAlpha(2), 0.2 * 255, 1);
}

} // namespace
