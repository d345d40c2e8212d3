#include "kx_heat_map_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_heat_map_column_header_panel.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_chart_selection_provider.h"
#include "kx_heat_map_chart_data_provider.h"
#include "kx_heat_map_legend.h"
#include "kx_heat_map_panel.h"
#include "kx_heat_map_raster.h"
#include "kx_load_chart.h"
#include "kx_test_input.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
using Values = std::vector<double>;

TEST(KXHeatMapRaster, PixelsShowLinesGapsAndTheStrongestOfMany)
{
    struct Case {
        const char* name;
        KXGridLines lines;
        double start, pixel;
        int count;
        double gap;
        std::string expected; // the lines of each pixel, - for a gap
    };
    const Case cases[] = {
        {"two pixels a line", KXGridLines::makeEqual(2, 2), 0, 1, 5, 0, "0 0 1 1 . "},
        {"edges on the nearest pixel", KXGridLines::makeEqual(3, 5.0 / 3), 0, 1, 5, 0, "0 0 1 2 2 "},
        {"a gap at the end", KXGridLines::makeEqual(2, 6), 0, 1, 12, 1, "0 0 0 0 0 - 1 1 1 1 1 - "},
        {"scrolled, on a finer device", KXGridLines::makeEqual(9, 1), 3.5, 0.5, 4, 0, "3 4 4 5 "},
        {"each line in one pixel", KXGridLines::makeEqual(7, 0.5), 0, 1, 4, 0, "0-1 2-3 4-5 6 "},
        {"whatever the share", KXGridLines::makeEqual(5, 0.8), 0, 1, 4, 0, "0-1 2 3 4 "},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string told;
        for (const KXPixelLine& line : kxObtainPixelLines(c.lines, c.start, c.pixel, c.count, c.gap)) {
            const KXGridRange& range = line.lines;
            told += line.isGap ? "-" : range.isEmpty() ? "." : std::to_string(range.first);
            if (range.obtainCount() > 1)
                told += "-" + std::to_string(range.end - 1);
            told += " ";
        }
        EXPECT_EQ(told, c.expected);
    }

    // 4 x 2 cells on 2 x 1 pixels.
    const Values values{1, null, -9, null, 2, 7, 3, null};
    KXHeatMapCells cells{values, 2, 4, {-9, 7, -9, {0, 0, 0}, {100, 0, 0}, {200, 0, 0}, 0}, {}};
    const KXHeatMapColors colors(cells.scale);
    const auto rows = kxObtainPixelLines(KXGridLines::makeEqual(2, 0.5), 0, 1, 1, 0);
    const auto columns = kxObtainPixelLines(KXGridLines::makeEqual(4, 0.5), 0, 1, 2, 0);
    const auto draw = [&] {
        const UXImage image = kxDrawHeatMapRaster(cells, colors, rows, columns, {});
        return std::vector(image.getPixels(), image.getPixels() + 2);
    };
    EXPECT_EQ(draw(), (std::vector{colors.obtainPixel(7), colors.obtainPixel(3)}));
    cells.middle = 0;
    EXPECT_EQ(draw(), (std::vector{colors.obtainPixel(7), colors.obtainPixel(-9)}));
    EXPECT_EQ(kxObtainPixel({255, 128, 0, 0.5}), 0x80804000U);
}

TEST(KXHeatMapColors, StandForValuesAndClasses)
{
    const KXGradientScale smooth{0, 100, 0, {0, 0, 0}, {100, 0, 0}, {200, 0, 0}, 0};
    KXGradientScale classes = smooth;
    classes.classCount = 4;
    for (double value = -10; value <= 110; value += 0.25) {
        ASSERT_NEAR(KXHeatMapColors(smooth).obtainColor(value).red, smooth.obtainColor(value).red, 1);
        ASSERT_EQ(KXHeatMapColors(classes).obtainColor(value), classes.obtainColor(value)) << value;
    }
    EXPECT_EQ(KXHeatMapColors(smooth).obtainColor(null).alpha, 0);
    const KXGradientScale flat{5, 5, 5, {0, 0, 0}, {100, 0, 0}, {200, 0, 0}, 0};
    EXPECT_NEAR(KXHeatMapColors(flat).obtainColor(5).red, 100, 1) << "a single value";
}

/** Numbers by row and column, with totals where a test wants them. */
class HeatTable : public KXHeatMapChartDataProvider, public KXChartSelectionProvider {
public:
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return rowCount == 0; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == 0 ? rowCount : dimension == 1 ? columnCount : 0;
    }
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
    {
        ++askedTexts;
        return (path.at(0) == 0 ? "row " : columnWord) + std::to_string(path.at(1));
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return number(path.at(1), path.at(2));
    }
    bool obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path) override
    {
        return std::isnan(obtainValueData(user, path));
    }
    bool obtainHasTotals(KXChartDataUser*, bool) override { return hasTotals; }
    void obtainTotals(KXChartDataUser*, bool ofRows, std::uint64_t first, std::span<double> totals) override
    {
        for (std::size_t i = 0; i < totals.size(); ++i)
            totals[i] = (ofRows ? 1000.0 : 2000.0) + static_cast<double>(first + i);
    }
    double obtainGrandTotal(KXChartDataUser*) override { return 9000; }
    bool obtainCanSelect(KXChartDataUser*) override { return canSelect; }
    bool obtainIsSelected(KXChartDataPath* path) override
    {
        return std::ranges::count(chosen, path->valueIndexPath) > 0;
    }
    void selectionChanged(KXChartDataUser*, const std::vector<KXChartDataPath>& paths) override
    {
        chosen.clear();
        for (const KXChartDataPath& path : paths)
            chosen.push_back(path.valueIndexPath);
    }

    std::uint64_t rowCount = 4, columnCount = 5;
    std::function<double(std::uint64_t, std::uint64_t)> number = [](std::uint64_t row, std::uint64_t column) {
        return static_cast<double>(10 * row + column);
    };
    std::string columnWord;
    bool hasTotals = false;
    bool canSelect = false;
    std::vector<KXIndexPath> chosen;
    std::uint64_t askedTexts = 0;
};

class KXHeatMapChartTest : public testing::Test {
protected:
    KXHeatMapChartTest()
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.getChartProperty()->setShowLegend(false);
        chart.getDataFormat()->setDecimals(0);
        diagram.addChild(&chart);
    }
    ~KXHeatMapChartTest() override { chart.setParent(nullptr); }
    void load(const UXRect& rect = {0, 0, 500, 300})
    {
        diagram.setRect(rect);
        chart.setRect(rect);
        chart.setDataProvider(&table);
        chart.prepareData();
        chart.reloadData();
        diagram.layout();
    }
    const KXHeatMapContentPanel& content() { return chart.getPanel()->getContentPanel(); }
    std::string tellHint(const KXChartItem& item)
    {
        const UXHintInfo info = chart.obtainItemHint(item);
        return info.title + ": " + info.text;
    }

    const UXFixedMeasurer measurer;
    HeatTable table;
    KXHeatMapChart chart;
    UXDiagram diagram;
};

TEST_F(KXHeatMapChartTest, CellsFillTheRoomBesideTheirNames)
{
    table.hasTotals = true;
    load();
    const KXHeatMapPanel& panel = *chart.getPanel();
    const UXRect cells = content().getRect();
    EXPECT_FALSE(panel.hasScrollBars());
    EXPECT_EQ(cells.x, 5 * 6 + 6) << "row 0 and the room beside it";
    EXPECT_EQ(cells.y, 12 + 6);
    const UXRect rowTotals = panel.getTotalsPanel(true).getRect(), place = panel.getRect();
    EXPECT_EQ(rowTotals.x, cells.x + cells.width);
    EXPECT_EQ(rowTotals.x + rowTotals.width, place.width);
    EXPECT_EQ(panel.getTotalsPanel(false).getRect().getBottom(), place.height);
    ASSERT_EQ(panel.getTotalsPanel(true).getLabels().size(), 4u);
    EXPECT_EQ(panel.getTotalsPanel(true).getLabels()[3].getText(), "1,003");
    EXPECT_EQ(panel.getGrandTotalPanel().getLabels().at(0).getText(), "9,000");
    EXPECT_EQ(chart.obtainItemAt({cells.x + 1, cells.y + 1}), (KXChartItem{0, 0, 0}));
    EXPECT_EQ(chart.obtainItemAt({2, cells.getBottom() - 2}), (KXChartItem{KXHeatMapChart::rowKind, 3, 0}));
    EXPECT_EQ(chart.obtainItemAt({place.x + place.width - 1, place.getBottom() - 1}),
              (KXChartItem{KXHeatMapChart::grandTotalKind, 0, 0}));
    EXPECT_EQ(tellHint({0, 2, 3}), "row 2, 3: 23");
    EXPECT_EQ(tellHint({KXHeatMapChart::columnTotalKind, 0, 1}), "1, Total: 2,001");
}

TEST_F(KXHeatMapChartTest, TheRangeOfTheColoursAndWhatIsBeyondIt)
{
    table.columnCount = 25; // values from 0 to 99, the last of them null
    table.number = [](std::uint64_t row, std::uint64_t column) {
        return row == 3 && column == 24 ? null : static_cast<double>(25 * row + column);
    };
    struct Case {
        const char* name;
        std::function<void()> set;
        double least, greatest;
        std::string note;
    };
    const Case cases[] = {
        {"all", [] {}, 0, 98, ""},
        {"percentiles", [&] { chart.setLowPercentile(50); }, 49, 98, "Beyond the colours: 49 below"},
        {"a bound rather than a percentile",
         [&] {
             chart.setHasLowerBound(true);
             chart.setLowerBound(-5);
             chart.setHighPercentile(96);
         },
         -5, 94.08, "Beyond the colours: 4 above"},
        {"ends the wrong way round",
         [&] {
             chart.setHasUpperBound(true);
             chart.setUpperBound(-8);
         },
         -8, -5, "Beyond the colours: 99 above"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.set();
        load();
        EXPECT_DOUBLE_EQ(chart.getScale().least, c.least);
        EXPECT_DOUBLE_EQ(chart.getScale().greatest, c.greatest);
        EXPECT_EQ(chart.getNote(), c.note);
    }
}

TEST_F(KXHeatMapChartTest, ADragChoosesCells)
{
    table.number = [](std::uint64_t row, std::uint64_t column) {
        return row == 2 && column == 2 ? null : static_cast<double>(10 * row + column);
    };
    load();
    const KXTestInput input{diagram};
    const auto middle = [&](std::uint64_t row, std::uint64_t column) {
        const UXRect rect = chart.obtainItemRect({0, row, column});
        return UXPoint(rect.x + rect.width / 2, rect.y + rect.height / 2);
    };
    const auto drag = [&](UXPoint from, UXPoint to) {
        input.press(from);
        UXEvent event = KXTestInput::at(to);
        event.setEventType(UXEventType::MouseDragging);
        diagram.mouseDragging(event);
        input.release(to);
    };
    drag(middle(1, 1), middle(2, 3));
    EXPECT_TRUE(table.chosen.empty()) << "the host does not let the user choose";
    table.canSelect = true;
    drag(middle(1, 1), middle(2, 3));
    using Paths = std::vector<KXIndexPath>;
    EXPECT_EQ(table.chosen, (Paths{{0, 1, 1}, {0, 1, 2}, {0, 1, 3}, {0, 2, 1}, {0, 2, 3}}));
    EXPECT_TRUE(chart.getPanel()->getSelection().isEmpty()) << "the host has it now";
    drag(middle(3, 0), middle(3, 1));
    EXPECT_EQ(table.chosen, (Paths{{0, 3, 0}, {0, 3, 1}}));
    input.click(middle(0, 4));
    EXPECT_EQ(table.chosen, (Paths{{0, 0, 4}}));
}

TEST_F(KXHeatMapChartTest, ManyRowsCostWhatIsInSight)
{
    table.rowCount = 20'000;
    chart.setMinCellSize(20);
    load();
    EXPECT_TRUE(chart.getPanel()->hasVerticalScrollBar());
    EXPECT_LT(table.askedTexts, 60u);
    table.askedTexts = 0;
    chart.getPanel()->setContentOffsetY(1'000'000'000);
    diagram.layout();
    EXPECT_LT(table.askedTexts, 60u);
    EXPECT_EQ(chart.obtainItemAt({400, 280})->group, 19'999u);
    EXPECT_NE(uxPaintToText(chart).find("row 19999"), std::string::npos);

    // In one picture, where a pixel stands for its greatest value.
    chart.setFit(true);
    load();
    EXPECT_FALSE(chart.getPanel()->hasScrollBars());
    ASSERT_TRUE(content().isMerged());
    const UXRect cells = content().getRect();
    const UXRect place = chart.getPanel()->getRect();
    const std::optional<KXChartItem> last = chart.obtainItemAt(
        {place.x + cells.x, place.y + cells.getBottom() - 1});
    EXPECT_EQ(last, (KXChartItem{0, 19'999, 0}));
    const std::uint64_t perPixel = 20'000 / static_cast<std::uint64_t>(cells.height);
    EXPECT_NE(tellHint(*last).find("(" + std::to_string(perPixel)), std::string::npos) << tellHint(*last);
}

TEST_F(KXHeatMapChartTest, KeysPassNullsAndReachNamesAndTotals)
{
    table.hasTotals = true;
    table.number = [](std::uint64_t row, std::uint64_t column) {
        return column == 1 || row == 0 ? null : static_cast<double>(row + column);
    };
    load();
    using enum KXChartItemStep;
    const auto cell = [](std::uint64_t row, std::uint64_t column) { return KXChartItem{0, row, column}; };
    const KXChartItem row1{KXHeatMapChart::rowKind, 1, 0}, column0{KXHeatMapChart::columnKind, 0, 0};
    struct Case {
        const char* name;
        std::optional<KXChartItem> from;
        KXChartItemStep step;
        std::optional<KXChartItem> to;
    };
    const Case cases[] = {
        {"the first with a value", {}, First, cell(1, 0)},
        {"the last", {}, Last, cell(3, 4)},
        {"over a null", cell(1, 0), Right, cell(1, 2)},
        {"in reading order", cell(1, 4), Next, cell(2, 0)},
        {"and back", cell(2, 0), Previous, cell(1, 4)},
        {"not before the first", cell(1, 0), Previous, {}},
        {"to the name of the row", cell(1, 0), Left, row1},
        {"and back from it", row1, Right, cell(1, 0)},
        {"over nulls to the name of the column", cell(1, 0), Up, column0},
        {"no corner above", column0, Left, {}},
        {"to the totals", cell(3, 4), Down, KXChartItem{KXHeatMapChart::columnTotalKind, 0, 4}},
        {"to the last of all", KXChartItem{KXHeatMapChart::rowTotalKind, 3, 0}, Down,
         KXChartItem{KXHeatMapChart::grandTotalKind, 0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(chart.obtainItemBeside(c.from, c.step), c.to);
    }
}

TEST_F(KXHeatMapChartTest, PathsNameCellsRowsAndColumns)
{
    load();
    const KXChartItem items[] = {
        {0, 2, 3}, {KXHeatMapChart::rowKind, 2, 0}, {KXHeatMapChart::columnKind, 0, 3}};
    for (const KXChartItem& item : items) {
        const std::unique_ptr<KXChartDataPath> path(chart.createItemPath(item));
        EXPECT_EQ(chart.findItems(*path), std::vector{item}) << path->identifier;
    }
    KXChartDataPath path;
    for (const KXIndexPath& value : {KXIndexPath{0, 9, 9}, {0, 2}, {7}, {1, 2, 3}}) {
        path.valueIndexPath = value;
        EXPECT_TRUE(chart.findItems(path).empty());
    }

    // A linked row gives way to nothing, and the rest to it.
    path.valueIndexPath = {};
    path.dimensionIndexPath = {0, 2};
    chart.showLinkedHighlight(path, nullptr);
    diagram.layout();
    EXPECT_LT(chart.obtainDimmedOpacity(), 1);
    chart.hideLinkedHighlight(nullptr);

    // The legend marks the value under the pointer.
    const UXRect rect = chart.obtainItemRect({0, 2, 3});
    KXTestInput{diagram}.move({rect.x + 3, rect.y + 3});
    EXPECT_EQ(chart.getHeatMapLegend()->getMarkedValue(), 23);
    EXPECT_EQ(chart.obtainDimmedOpacity(), 1) << "colours stay what they are";
    KXTestInput{diagram}.leave();
    EXPECT_FALSE(chart.getHeatMapLegend()->getMarkedValue());
}

TEST_F(KXHeatMapChartTest, NamesAreShownAsFarAsThereIsRoom)
{
    struct Case {
        const char* name;
        std::uint64_t columnCount;
        const char* word;
        std::string shown;
        bool turned;
    };
    const Case cases[] = {
        {"all of them", 5, "", "0 1 2 3 4 ", false},
        {"turned", 9, "column_",
         "column_0 column_1 column_2 column_3 column_4 column_5 column_6 column_7 column_8 ", true},
        {"short ones in steps", 40, "", "0 2 4 6 8 10 12 14 16 18 20 22 24 26 28 30 32 34 36 38 ", false},
        {"some", 150, "", "0 20 40 60 80 100 120 140 ", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        table.columnCount = c.columnCount;
        table.columnWord = c.word;
        load();
        std::string shown;
        for (const auto& label : chart.getPanel()->getColumnHeaderPanel().getLabels()) {
            shown += label.text + " ";
            EXPECT_EQ(label.isTurned, c.turned);
        }
        EXPECT_EQ(shown, c.shown);
    }
}

} // namespace
