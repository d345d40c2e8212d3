#include "kx_table_chart.h"

#include "kx_chart_data_path.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_json_object_factory.h"
#include "kx_table_color_rule.h"
#include "kx_table_data_provider.h"
#include "kx_table_grid.h"
#include "kx_table_test_provider.h"
#include "kx_test_input.h"
#include "ux/ux_diagram.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace {

/** A table on a diagram. */
class Board {
public:
    explicit Board(int width = 800, int height = 500)
    {
        diagram.setRect({0, 0, width, height});
        chart->setRect(diagram.getRect());
        diagram.addChild(chart.get());
    }
    ~Board() { diagram.removeChild(chart.get()); }
    Board(const Board&) = delete;
    Board& operator=(const Board&) = delete;

    void load()
    {
        chart->setDataProvider(&provider);
        chart->prepareData();
        chart->reloadData();
        diagram.layout();
    }
    /** @return the cells of a row between bars, its name first */
    std::string row(std::uint64_t index)
    {
        std::string text = chart->obtainHeaderText(true, index);
        for (std::uint64_t column = 0; column < chart->obtainColumnCount(); ++column)
            text += "|" + chart->obtainCellText(index, column);
        return text;
    }
    std::string rows()
    {
        std::string text;
        for (std::uint64_t index = 0; index < chart->obtainRowCount(); ++index)
            text += row(index) + "\n";
        return text;
    }
    /** @return the texts that a panel shows, in the order in which they are drawn */
    std::string texts(KXTablePanelType type) const
    {
        std::string text;
        for (const KXTableDrawnCell& cell : chart->getPanel(type)->getCells())
            text += (text.empty() ? "" : "|") + cell.text;
        return text;
    }
    /** @return the middle of what is drawn of a text */
    UXPoint find(KXTablePanelType type, const std::string& text, bool isMark = false) const
    {
        const KXTablePanel* panel = chart->getPanel(type);
        for (const KXTableDrawnCell& cell : panel->getCells()) {
            if (cell.text != text)
                continue;
            const UXDoubleRect& rect = isMark ? cell.markRect : cell.rect;
            return panel->translatePointToParent(
                {static_cast<int>(rect.x + rect.width / 2), static_cast<int>(rect.y + rect.height / 2)},
                nullptr);
        }
        ADD_FAILURE() << "no " << text;
        return {};
    }
    void type(UXKeyCode key, bool hasShift = false, bool hasCtrl = false)
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        if (hasShift)
            event.addEventKey(UXEventKey::Shift);
        if (hasCtrl)
            event.addEventKey(UXEventKey::Ctrl);
        diagram.setFocusedObject(chart.get());
        diagram.keyDown(event);
        diagram.layout();
    }

    const UXFixedMeasurer measurer;
    KXTableTestProvider provider;
    UXDiagram diagram;
    std::unique_ptr<KXTableChart> chart = std::make_unique<KXTableChart>();
    KXTestInput input{diagram};
};

TEST(KXTableChart, ShowsGroupsSubtotalsAndTotals)
{
    struct Case {
        const char* name;
        KXTableRowLayout layout;
        KXTableTotals totals;
        bool hasTotals;
        std::string expected;
    };
    using enum KXTableTotals;
    const Case cases[] = {
        {"tree", KXTableRowLayout::Tree, After, true,
         "g0|10|12|22\ng0, r0|0|1|1\ng0, r1|10|11|21\ng0, Total|10|12|22\nTotal|10|12|22\n"},
        {"columns", KXTableRowLayout::Columns, After, true,
         "g0, r0|0|1|1\ng0, r1|10|11|21\ng0, Total|10|12|22\nTotal|10|12|22\n"},
        {"before", KXTableRowLayout::Columns, Before, true,
         "g0, Total|10|12|22\ng0, r0|0|1|1\ng0, r1|10|11|21\nTotal|10|12|22\n"},
        {"not wanted", KXTableRowLayout::Columns, None, true, "g0, r0|0|1|1\ng0, r1|10|11|21\n"},
        {"not there", KXTableRowLayout::Columns, After, false, "g0, r0|0|1\ng0, r1|10|11\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Board board;
        board.provider.groupCount = 1;
        board.provider.memberCount = 2;
        board.provider.hasTotals = c.hasTotals;
        board.chart->setRowLayout(c.layout);
        board.chart->setRowTotals(c.totals);
        board.load();
        EXPECT_EQ(board.rows(), c.expected);
    }
}

TEST(KXTableChart, MeasuresStandBesideOrBelowEachOther)
{
    Board board;
    board.provider.groupCount = 0;
    board.provider.memberCount = 1;
    board.provider.measureCount = 2;
    board.provider.answer = [](const KXTablePlace& place) -> std::optional<KXTableCell> {
        return KXTableCell{static_cast<double>(place.measure) + 0.5, "", KXTableCellState::Value};
    };
    board.provider.hasTotals = false;
    board.load();
    EXPECT_EQ(board.rows(), "r0|0.50|1.50|0.50|1.50\n");
    EXPECT_EQ(board.texts(KXTablePanelType::Top), "c0|c1|M0|M1|M0|M1");
    board.chart->setMeasuresOnRows(true);
    board.diagram.layout();
    EXPECT_EQ(board.rows(), "r0, M0|0.50|0.50\nr0, M1|1.50|1.50\n");
    EXPECT_EQ(board.texts(KXTablePanelType::Left), "r0|M0||M1");
}

TEST(KXTableChart, ShowsValuesAsPartsDifferencesAndSums)
{
    using enum KXTableShowValuesAs;
    struct Case {
        const char* name;
        KXTableShowValuesAs shown;
        std::string expected;
    };
    // The values are 0 1 | 10 11 | 20 21, their total 63.
    const Case cases[] = {
        {"value", Value, "r0|0|1|1\nr1|10|11|21\nr2|20|21|41\nTotal|30|33|63\n"},
        {"of the row", PercentOfRow,
         "r0|0.0 %|100.0 %|100.0 %\nr1|47.6 %|52.4 %|100.0 %\nr2|48.8 %|51.2 %|100.0 %\n"
         "Total|47.6 %|52.4 %|100.0 %\n"},
        {"of the column", PercentOfColumn,
         "r0|0.0 %|3.0 %|1.6 %\nr1|33.3 %|33.3 %|33.3 %\nr2|66.7 %|63.6 %|65.1 %\n"
         "Total|100.0 %|100.0 %|100.0 %\n"},
        {"of all", PercentOfTotal,
         "r0|0.0 %|1.6 %|1.6 %\nr1|15.9 %|17.5 %|33.3 %\nr2|31.7 %|33.3 %|65.1 %\n"
         "Total|47.6 %|52.4 %|100.0 %\n"},
        {"difference", Difference, "r0|||\nr1|10|10|20\nr2|10|10|20\nTotal|||\n"},
        {"sum so far", RunningTotal, "r0|0|1|1\nr1|10|12|22\nr2|30|33|63\nTotal|30|33|63\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Board board;
        board.provider.groupCount = 0;
        board.chart->setShowValuesAs({c.shown});
        board.load();
        EXPECT_EQ(board.rows(), c.expected);
    }
}

TEST(KXTableChart, TellsApartWhyACellHasNoValue)
{
    Board board;
    board.provider.groupCount = 0;
    board.provider.columnCount = 0;
    board.provider.memberCount = 5;
    board.provider.hasTotals = false;
    board.provider.answer = [](const KXTablePlace& place) -> std::optional<KXTableCell> {
        const KXTableCell cells[] = {{NAN, "", KXTableCellState::Null},
                                     {NAN, "", KXTableCellState::Empty},
                                     {NAN, "division by zero", KXTableCellState::Error},
                                     {INFINITY, "", KXTableCellState::Value},
                                     {2, "", KXTableCellState::Value}};
        return cells[place.row.at(0)];
    };
    board.load();
    EXPECT_EQ(board.rows(), "r0|--\nr1|\nr2|#\nr3|--\nr4|2\n");
    const UXHintInfo hint = board.chart->obtainItemHint({KXTableChart::cellKind, 2, 0});
    ASSERT_EQ(hint.rows.size(), 1u);
    EXPECT_EQ(hint.title + "|" + hint.text + "|" + hint.rows[0].value, "r2|M0|division by zero");
    board.provider.isReady = false;
    board.load();
    const std::vector<KXTableDrawnCell>& cells = board.chart->getPanel(KXTablePanelType::Content)->getCells();
    ASSERT_FALSE(cells.empty());
    EXPECT_EQ(cells[0].mark, KXTableDrawnCell::Mark::Awaited);
    const std::uint64_t asked = board.provider.askedBlocks;
    board.chart->getGrid()->setRequireToVerifyLayout(true);
    board.diagram.layout();
    EXPECT_EQ(board.provider.askedBlocks, asked) << "what is awaited is not asked for again";
    board.provider.isReady = true;
    board.chart->dataArrived(0, 1);
    board.diagram.layout();
    EXPECT_EQ(board.texts(KXTablePanelType::Content), "--||#|--|2");
}

TEST(KXTableChart, WhatIsOutOfSightIsNotAskedForAndKeptWithinLimits)
{
    Board board;
    board.provider.groupCount = 0;
    board.provider.memberCount = 1'000'000;
    board.provider.columnCount = 1000;
    board.load();
    EXPECT_LT(board.provider.askedCells, 20'000u);
    EXPECT_EQ(board.texts(KXTablePanelType::LeftBottom), "Total");
    for (int page = 0; page < 20; ++page) {
        board.chart->getGrid()->setContentOffsetY(page * 1'200'000);
        board.chart->getGrid()->setContentOffsetX(page * 3000);
        board.diagram.layout();
    }
    const std::string shown = board.texts(KXTablePanelType::Content);
    EXPECT_EQ(shown.find("\u2026"), std::string::npos);
    EXPECT_LT(board.chart->obtainKeptSize(), std::size_t{20} << 20);
    board.provider.askedCells = 0;
    board.chart->getGrid()->setRequireToVerifyLayout(true);
    board.diagram.layout();
    EXPECT_EQ(board.provider.askedCells, 0u) << "what is in sight is kept";
}

TEST(KXTableChart, TheUserOpensSortsSizesAndItIsSavedByIdentity)
{
    Board board;
    board.load();
    board.input.click(board.find(KXTablePanelType::Left, "g0", true));
    board.diagram.layout();
    EXPECT_EQ(board.chart->obtainRowCount(), 1u + 5 + 1);
    EXPECT_EQ(board.chart->getToggledRows(), std::vector<std::string>{"g0"});

    UXPoint header = board.find(KXTablePanelType::Top, "c1");
    UXEvent twice = kxMakeEvent(UXEventType::MouseDoubleClick, header);
    board.diagram.mouseDoubleClick(twice);
    board.diagram.layout();
    ASSERT_EQ(board.provider.order.size(), 1u);
    EXPECT_EQ(board.provider.order[0], (KXTableSort{0, {1}, true}));
    board.input.click(board.find(KXTablePanelType::Top, "c1", true));
    EXPECT_EQ(board.chart->getSortOrder(), std::vector<std::string>{"+c1/m0"});
    EXPECT_FALSE(board.provider.order.at(0).isDescending);

    const KXTablePanel* top = board.chart->getPanel(KXTablePanelType::Top);
    const UXDoubleRect cell = top->obtainCellRect({0, 0});
    const UXPoint edge = top->translatePointToParent({static_cast<int>(cell.x + cell.width), 4}, nullptr);
    board.input.press(edge);
    UXEvent drag = KXTestInput::at({edge.x + 30, edge.y});
    drag.setEventType(UXEventType::MouseDragging);
    board.diagram.mouseDragging(drag);
    board.input.release({edge.x + 30, edge.y});
    board.diagram.layout();
    EXPECT_EQ(board.chart->getSizedColumns(), std::vector<std::string>{"c0/m0"});
    EXPECT_NEAR(top->obtainCellRect({0, 0}).width, cell.width + 30, 1.5);

    Board other;
    KXJsonObjectFactory factory;
    EXPECT_TRUE(other.chart->deserialize(board.chart->serialize(), &factory));
    other.load();
    EXPECT_EQ(other.rows(), board.rows());
    EXPECT_EQ(other.texts(KXTablePanelType::Top), board.texts(KXTablePanelType::Top));
    EXPECT_EQ(other.chart->serialize(), board.chart->serialize());
}

TEST(KXTableChart, ColumnsAreMovedFrozenAndLeftOutWhereTheyAreEmpty)
{
    Board board(400, 300);
    board.provider.groupCount = 0;
    board.provider.memberCount = 2;
    board.provider.columnCount = 12;
    board.provider.measureCount = 2;
    board.provider.answer = [](const KXTablePlace& place) -> std::optional<KXTableCell> {
        if (place.column == KXIndexPath{1} || place.row == KXIndexPath{1})
            return KXTableCell{NAN, "", KXTableCellState::Null};
        const double column = place.column.empty() ? 99 : static_cast<double>(place.column[0]);
        return KXTableCell{10 * column + static_cast<double>(place.measure), "", KXTableCellState::Value};
    };
    const auto drag = [&](const std::string& from, const std::string& to) {
        const UXPoint start = board.find(KXTablePanelType::Top, from);
        UXPoint end = board.find(KXTablePanelType::Top, to);
        end.x += start.x < end.x ? 10 : -10;
        board.input.press(start);
        UXEvent event = KXTestInput::at(end);
        event.setEventType(UXEventType::MouseDragging);
        board.diagram.mouseDragging(event);
        board.input.release(end);
        board.diagram.layout();
    };
    board.chart->setHideEmptyColumns(true);
    board.chart->setHideEmptyRows(true);
    board.load();
    EXPECT_EQ(board.rows().substr(0, 19), "r0|0|1|20|21|30|31|") << "neither c1 nor r1";
    EXPECT_EQ(board.chart->obtainRowCount(), 2u);
    drag("c2", "c0");
    EXPECT_EQ(board.rows().substr(0, 19), "r0|20|21|0|1|30|31|");
    drag("M0", "M1");
    EXPECT_EQ(board.rows().substr(0, 19), "r0|21|20|1|0|31|30|");
    EXPECT_EQ(board.chart->getColumnOrder().front(), "c2");
    EXPECT_EQ(board.chart->getColumnOrder().back(), "/m0");
    const KXChartItem cell = board.chart->findItems(*board.chart->createItemPath({0, 0, 2})).at(0);
    EXPECT_EQ(cell, (KXChartItem{0, 0, 2}));

    board.chart->setFrozenColumns(2);
    board.diagram.layout();
    const KXTablePanel* frozen = static_cast<KXTablePanel*>(
        board.chart->getGrid()->getPanel(KXGridBand::Content, KXGridBand::Frozen));
    ASSERT_FALSE(frozen->getCells().empty());
    EXPECT_EQ(frozen->getCells()[0].text + "|" + frozen->getCells()[1].text, "21|20");
    for (const std::uint64_t column : {std::uint64_t{21}, std::uint64_t{1}, std::uint64_t{3}}) {
        board.chart->showItem({KXTableChart::cellKind, 0, column});
        const UXRect rect = board.chart->obtainItemRect({KXTableChart::cellKind, 0, column});
        EXPECT_GE(rect.width, 24) << column;
        EXPECT_EQ(board.chart->obtainItemAt({uxMidX(rect), uxMidY(rect)}),
                  (KXChartItem{KXTableChart::cellKind, 0, column}));
        EXPECT_EQ(frozen->getCells()[0].text, "21") << "in sight at any place";
    }

    Board other(400, 300);
    other.provider.groupCount = 0;
    other.provider.memberCount = 2;
    other.provider.columnCount = 12;
    other.provider.measureCount = 2;
    other.provider.answer = board.provider.answer;
    KXJsonObjectFactory factory;
    EXPECT_TRUE(other.chart->deserialize(board.chart->serialize(), &factory));
    other.load();
    EXPECT_EQ(other.rows(), board.rows());
}

/** A table that has all but the percentiles at once. */
class LateHost : public KXTableDataProvider {
public:
    bool isReady = false;

    bool obtainPercentiles(KXChartDataUser* user, std::uint64_t measure, std::span<double> values) override
    {
        return isReady && KXTableDataProvider::obtainPercentiles(user, measure, values);
    }
};

TEST(KXTableChart, RulesColourAPartOfTheCells)
{
    Board board;
    LateHost provider;
    provider.addDimension("Name", std::vector<std::string>{"a", "b", "c", "d", "e"});
    provider.addMeasure("Value", std::vector<double>{4, 1, 5, 2, 3});
    KXTableColorRule rule;
    rule.setKind(KXTableColorRuleKind::Percentile);
    rule.setFrom(75);
    rule.setTo(100);
    board.chart->setColorRules({rule});
    board.chart->setDataProvider(&provider);
    board.chart->prepareData();
    board.chart->reloadData();
    board.diagram.layout();
    const auto obtainColored = [&] {
        std::string colored;
        for (const KXTableDrawnCell& cell : board.chart->getPanel(KXTablePanelType::Content)->getCells())
            if (cell.ground == rule.getFillColor())
                colored += cell.text;
        return colored;
    };
    EXPECT_EQ(obtainColored(), "");
    provider.isReady = true;
    board.chart->dataArrived(0, 1);
    board.diagram.layout();
    EXPECT_EQ(obtainColored(), "45");
}

TEST(KXTableChart, KeysWalkChooseAndCopy)
{
    Board board;
    board.provider.groupCount = 0;
    board.load();
    struct Case {
        const char* name;
        UXKeyCode key;
        bool hasShift, hasCtrl;
        KXChartItem focused;
        std::size_t chosen; // blocks
    };
    const Case cases[] = {
        {"in", UXKeyCode::Right, false, false, {0, 0, 0}, 0},
        {"right", UXKeyCode::Right, false, false, {0, 0, 1}, 0},
        {"to the end of the row", UXKeyCode::End, false, false, {0, 0, 2}, 0},
        {"a page", UXKeyCode::PageDown, false, false, {0, 2, 2}, 0},
        {"to the total", UXKeyCode::Down, false, false, {0, 3, 2}, 0},
        {"choosing upwards", UXKeyCode::Up, true, false, {0, 2, 2}, 1},
        {"and to the left", UXKeyCode::Left, true, false, {0, 2, 1}, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        board.type(c.key, c.hasShift, c.hasCtrl);
        ASSERT_TRUE(board.chart->getItems()->getFocused());
        EXPECT_EQ(*board.chart->getItems()->getFocused(), c.focused);
        EXPECT_EQ(board.chart->getGrid()->getSelection().getBlocks().size(), c.chosen);
    }
    board.type(UXKeyCode('C'), true, true);
    EXPECT_EQ(board.provider.copiedText, "\tc1\tTotal\r\nr2\t21\t41\r\nTotal\t33\t63\r\n");
    EXPECT_EQ(std::ranges::count(board.provider.copiedHtml, '<'), 2 * (1 + 3 + 9) + 1);
    board.type(UXKeyCode('A'), false, true);
    EXPECT_EQ(board.chart->copySelection(false).obtainText(),
              "0\t1\t1\r\n10\t11\t21\r\n20\t21\t41\r\n30\t33\t63\r\n");
    board.provider.found = KXTablePlace{{1}, {0}, 0};
    EXPECT_TRUE(board.chart->findNext("10", true));
    EXPECT_EQ(board.chart->copySelection(false).obtainText(), "10\r\n");

    board.provider.memberCount = 1'000'000;
    board.load();
    board.type(UXKeyCode('A'), false, true);
    EXPECT_TRUE(board.chart->copySelection(true).isTooLarge());
}

TEST(KXTableChart, PathsNameCellsRowsAndColumns)
{
    Board board;
    board.load();
    struct Case {
        const char* name;
        KXIndexPath members, value;
        std::vector<KXChartItem> expected;
    };
    constexpr std::uint64_t all = KXTableChartDataProvider::allMembers;
    const Case cases[] = {
        {"a cell", {}, {0, 1, 2, 1}, {{0, 8, 1}}},
        {"a subtotal of a row", {}, {0, 1, all, 0}, {{0, 5, 0}}},
        {"the total of all", {}, {0, all, all, all}, {{0, 10, 2}}},
        {"a group", {0, 1}, {}, {{1, 5, 0}}},
        {"a member of a group", {1, 1, 2}, {}, {{1, 8, 0}}},
        {"a column", {2, 1}, {}, {{2, 0, 1}}},
        {"the value of a chart of groups", {}, {0, 1}, {{1, 5, 0}}},
        {"nobody", {0, 7}, {}, {}},
        {"another dimension", {7, 1}, {}, {}},
        {"another measure", {}, {1, 1, 2, 1}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXChartDataPath path;
        path.dimensionIndexPath = c.members;
        path.valueIndexPath = c.value;
        const std::vector<KXChartItem> found = board.chart->findItems(path);
        EXPECT_EQ(found, c.expected);
        if (found.empty())
            continue;
        const std::unique_ptr<KXChartDataPath> own(board.chart->createItemPath(found[0]));
        EXPECT_EQ(board.chart->findItems(*own), found);
    }
}

} // namespace
