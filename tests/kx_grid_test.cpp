#include "kx_grid.h"

#include "kx_grid_panel.h"
#include "kx_test_input.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_recording_paint_config.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace {

using Range = KXGridRange;
using Cell = KXGridCell;
constexpr auto header = KXGridBand::Header, content = KXGridBand::Content, totals = KXGridBand::Totals;

TEST(KXGridLines, PlacesAndLines)
{
    const double odd[] = {10, 0, NAN, -3, 20, 5};
    const KXGridLines given = KXGridLines::makeGiven(odd), none, flat = KXGridLines::makeEqual(9, -1);
    const KXGridLines many = KXGridLines::makeEqual(10'000'000, 0.1);
    struct Case {
        const char* name;
        const KXGridLines& lines;
        double from, to;
        Range range;
        std::optional<std::uint64_t> found; // at from
    };
    const Case cases[] = {
        {"lines without extent are passed over", given, 10, 11, {4, 5}, 4},
        {"the end is not the line's", given, 0, 10, {0, 1}, 0},
        {"from inside to inside", given, 5, 31, {0, 6}, 0},
        {"before and beyond all", given, -5, 99, {0, 6}, std::nullopt},
        {"beyond", given, 35, 99, {}, std::nullopt},
        {"backwards", given, 20, 10, {}, 4},
        {"no lines", none, 0, 10, {}, std::nullopt},
        {"no extent", flat, 0, 10, {}, std::nullopt},
        {"what a division would round down", many, 0.3, 0.5, {2, 5}, 2},
        {"far away", many, 999'999.95, 2e6, {9'999'999, 10'000'000}, 9'999'999},
        {"not a number", many, NAN, 3, {}, std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.lines.obtainRange(c.from, c.to), c.range);
        EXPECT_EQ(c.lines.findAt(c.from), c.found);
    }
    for (std::uint64_t line = 0; line < many.getCount(); line += 1237)
        ASSERT_EQ(many.findAt(many.obtainStart(line)), line) << "a line holds its start";
}

TEST(KXGridSelection, PressesDragsAndKeys)
{
    using enum KXGridSelectionUnit;
    KXGridSelection selection;
    selection.press({0, 0}, Cells, false, false);
    EXPECT_TRUE(selection.isEmpty()) << "there is nothing to choose";
    selection.setExtent(10, 5);
    struct Case {
        const char* name;
        std::function<void()> act;
        std::vector<KXGridBlock> blocks;
        Cell focus;
    };
    const auto press = [&](Cell cell, KXGridSelectionUnit unit, bool extends = false, bool adds = false) {
        return [&selection, cell, unit, extends, adds] { selection.press(cell, unit, extends, adds); };
    };
    const auto move = [&](KXGridStep step, bool extends = false) {
        return [&selection, step, extends] { selection.move(step, extends, 4); };
    };
    const auto drag = [&](Cell cell) { return [&selection, cell] { selection.dragTo(cell); }; };
    const auto widen = [&](KXGridSelectionUnit unit) {
        return [&selection, unit] { selection.widen(unit); };
    };
    using enum KXGridStep;
    const Case cases[] = {
        {"a key without a focus begins at the top", move(Down), {{{0, 1}, {0, 1}}}, {0, 0}},
        {"a press", press({4, 2}, Cells), {{{4, 5}, {2, 3}}}, {4, 2}},
        {"a drag backwards", drag({2, 3}), {{{2, 5}, {2, 4}}}, {2, 3}},
        {"shift goes on from where it began", press({6, 0}, Cells, true), {{{4, 7}, {0, 3}}}, {6, 0}},
        {"ctrl takes one of them away",
         press({5, 1}, Cells, false, true),
         {{{4, 5}, {0, 3}}, {{6, 7}, {0, 3}}, {{5, 6}, {0, 1}}, {{5, 6}, {2, 3}}},
         {5, 1}},
        {"and a drag does not put it back",
         drag({9, 4}),
         {{{4, 5}, {0, 3}}, {{6, 7}, {0, 3}}, {{5, 6}, {0, 1}}, {{5, 6}, {2, 3}}},
         {5, 1}},
        {"whole rows, however far", press({99, 3}, Rows), {{{9, 10}, {0, 5}}}, {9, 3}},
        {"by a drag", drag({7, 0}), {{{7, 10}, {0, 5}}}, {7, 0}},
        {"and a column beside them",
         press({0, 1}, Columns, false, true),
         {{{7, 10}, {0, 5}}, {{0, 10}, {1, 2}}},
         {0, 1}},
        {"a page stops at the end", press({8, 1}, Cells), {{{8, 9}, {1, 2}}}, {8, 1}},
        {"of rows", move(PageDown), {{{9, 10}, {1, 2}}}, {9, 1}},
        {"a page up, extended", move(PageUp, true), {{{5, 10}, {1, 2}}}, {5, 1}},
        {"the end of the row, extended", move(RowEnd, true), {{{5, 10}, {1, 5}}}, {5, 4}},
        {"wider", widen(Columns), {{{0, 10}, {1, 5}}}, {5, 4}},
        {"no further than the edge", move(Right), {{{5, 6}, {4, 5}}}, {5, 4}},
        {"the first", move(First), {{{0, 1}, {0, 1}}}, {0, 0}},
        {"no further up", move(Up), {{{0, 1}, {0, 1}}}, {0, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        c.act();
        EXPECT_EQ(selection.getBlocks(), c.blocks);
        EXPECT_EQ(selection.getFocus(), c.focus);
    }
    selection.setExtent(10, 6);
    EXPECT_TRUE(selection.isEmpty()) << "cells of other data";
}

/** Notes what it is asked to lay out and to draw. */
class TestPanel : public KXGridPanel {
public:
    std::string laidOut;

protected:
    void _layoutCells() override
    {
        const Range rows = obtainVisibleRows(), columns = obtainVisibleColumns();
        laidOut = std::to_string(rows.first) + "-" + std::to_string(rows.end) + " x " +
                  std::to_string(columns.first) + "-" + std::to_string(columns.end);
    }
    void _paintCells(UXPainter&, const UXRect&) const override {}
};

/** A million rows of 20 and a thousand columns of 50, with a header of 30 above, one of 60 at the left and a
 * line of totals below, seen through 312 x 262. */
struct TestGrid {
    UXDiagram diagram{nullptr};
    KXGrid* grid = new KXGrid;
    UXControl control;

    TestGrid()
    {
        for (const KXGridBand row : {header, content, totals})
            for (const KXGridBand column : {header, content})
                grid->setPanel(row, column, new TestPanel);
        const double rowHeader = 60, columnHeader = 30;
        grid->setColumns(header, KXGridLines::makeGiven({&rowHeader, 1}));
        grid->setRows(header, KXGridLines::makeGiven({&columnHeader, 1}));
        grid->setRows(content, KXGridLines::makeEqual(1'000'000, 20));
        grid->setColumns(content, KXGridLines::makeEqual(1000, 50));
        grid->setRows(totals, KXGridLines::makeEqual(1, 20));
        diagram.setRect({0, 0, 312, 262});
        grid->setRect({0, 0, 312, 262});
        diagram.addChild(grid);
        diagram.layout();
    }
    ~TestGrid() { delete grid; }
    const std::string& obtainLaidOut(KXGridBand row, KXGridBand column) const
    {
        return static_cast<TestPanel*>(grid->getPanel(row, column))->laidOut;
    }
};

TEST(KXGrid, HeadersAndTotalsStayInSightWhileTheContentScrolls)
{
    TestGrid test;
    KXGrid& grid = *test.grid;
    const int bar = UXVirtualScrollView::extraExtent;
    EXPECT_EQ(grid.getPanel(content, content)->getRect(), UXRect(60, 30, 252 - bar, 232 - bar - 20));
    EXPECT_EQ(grid.getPanel(totals, content)->getRect(), UXRect(60, 242 - bar, 252 - bar, 20));
    EXPECT_EQ(test.obtainLaidOut(content, content), "0-10 x 0-5");

    grid.setContentOffsetY(1'000'000'000);
    grid.setContentOffsetX(25);
    test.diagram.layout();
    EXPECT_EQ(test.obtainLaidOut(content, content), "999990-1000000 x 0-6") << "all the way, and no further";
    EXPECT_EQ(test.obtainLaidOut(content, header), "999990-1000000 x 0-1");
    EXPECT_EQ(test.obtainLaidOut(header, content), "0-1 x 0-6");
    EXPECT_EQ(test.obtainLaidOut(totals, content), "0-1 x 0-6");

    const std::optional<KXGridHit> hit = grid.findCell({60 + 30, 30 + 1});
    EXPECT_EQ(hit, (KXGridHit{content, content, {999'990, 1}}));
    EXPECT_EQ(grid.obtainSelectionCell(*grid.findCell({61, 245 - bar})), (Cell{1'000'000, 0}));
    EXPECT_EQ(grid.obtainSeenRect({content, content, {999'990, 0}}), UXRect(60, 30, 25, 20)) << "cut";
    EXPECT_EQ(grid.obtainSeenRect({content, content, {0, 0}}), UXRect()) << "out of sight";

    grid.showCell({5, 999});
    EXPECT_EQ(grid.getContentOffsetY(), 5 * 20);
    EXPECT_EQ(grid.getContentOffsetX(), 1000 * 50 - (252 - bar));

    grid.setColumns(header, KXGridLines::makeEqual(1, 5000));
    test.diagram.layout();
    EXPECT_GT(grid.getPanel(content, content)->getRect().width, 100) << "a header leaves room";
}

TEST(KXGrid, ThePointerAndTheKeysChoose)
{
    TestGrid test;
    KXGrid& grid = *test.grid;
    grid.setSelects(true);
    int told = 0;
    grid.setSelectionHandler([&](const UXEvent&) { ++told; });
    const KXTestInput input{test.diagram};
    const auto obtainBlocks = [&] { return grid.getSelection().getBlocks(); };
    using Blocks = std::vector<KXGridBlock>;

    input.click({65, 35});
    EXPECT_EQ(obtainBlocks(), (Blocks{{{0, 1}, {0, 1}}}));
    input.click({5, 55});
    EXPECT_EQ(obtainBlocks(), (Blocks{{{1, 2}, {0, 1000}}})) << "its header chooses a row";
    input.click({115, 5});
    EXPECT_EQ(obtainBlocks(), (Blocks{{{0, 1'000'001}, {1, 2}}})) << "its header chooses a column";
    EXPECT_EQ(told, 3);

    input.type(UXKeyCode::PageDown);
    EXPECT_EQ(grid.getSelection().getFocus(), (Cell{9, 1}));
    input.type(UXKeyCode::PageDown);
    EXPECT_EQ(grid.getSelection().getFocus(), (Cell{18, 1}));
    EXPECT_GT(grid.getContentOffsetY(), 0) << "what the keys lead to comes into sight";

    // A drag beyond the lower edge scrolls as long as it lasts.
    UXEvent drag = KXTestInput::at({65, 260});
    drag.setControl(&test.control);
    const std::int64_t before = grid.getContentOffsetY();
    input.press({65, 35});
    test.diagram.mouseMove(drag);
    test.control.timer(0);
    test.control.timer(100);
    EXPECT_GT(grid.getContentOffsetY(), before);
    const KXGridBlock dragged = obtainBlocks().front();
    EXPECT_GT(dragged.rows.obtainCount(), 9u);
    input.release({65, 260});
    const std::int64_t after = grid.getContentOffsetY();
    test.control.timer(1000);
    EXPECT_EQ(grid.getContentOffsetY(), after);

    input.type(UXKeyCode::Escape);
    EXPECT_TRUE(grid.getSelection().isEmpty());
    grid.setSelects(false);
    EXPECT_FALSE(input.type(UXKeyCode::Down)) << "the keys are somebody else's";
}

} // namespace
