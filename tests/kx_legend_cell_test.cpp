#include "kx_legend_cell.h"

#include "kx_chart_property.h"
#include "kx_interaction_color_effect.h"
#include "kx_legend.h"
#include "kx_test_chart.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/** A chart of a given number of legend cells, which asks about as many identifiers as the cell's index. */
class LegendChart : public KXTestChart {
public:
    LegendChart() { setRect(uxMakeRect(0, 0, 402, 302)); }
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override
    {
        return std::vector<KXObjectID>(index < 100 ? index : 0);
    }
    bool obtainLegendCellIsOn(std::uint64_t index) override { return !switchedOff.contains(index); }
    void legendCellClicked(std::uint64_t index, const UXEvent&) override
    {
        if (switchedOff.erase(index) == 0)
            switchedOff.insert(index);
    }
    void legendCellHovered(std::uint64_t, bool hovered) override
    {
        if (!hovered && onLeft)
            onLeft();
    }

    KXLegend& layoutAt(UXPosition position)
    {
        getChartProperty()->updateLegendPosition(position);
        layout();
        return *getLegend();
    }
    UXVirtualScrollView& view()
    {
        return *dynamic_cast<UXVirtualScrollView*>(getLegend()->getChildren().front());
    }
    std::vector<KXLegendCell*> cells()
    {
        std::vector<KXLegendCell*> found;
        for (UXObject* child : view().getChildren())
            if (auto* cell = dynamic_cast<KXLegendCell*>(child))
                found.push_back(cell);
        std::ranges::sort(found, {}, &KXLegendCell::getIndex);
        return found;
    }
    /** @return "index:left,top width" of every cell object, by index */
    std::string places()
    {
        std::string text;
        for (const KXLegendCell* cell : cells()) {
            const UXRect rect = cell->getRect();
            text += (text.empty() ? "" : " ") + std::to_string(cell->getIndex()) + ":" +
                    std::to_string(rect.x) + "," + std::to_string(rect.y) + " " + std::to_string(rect.width);
        }
        return text;
    }

    std::set<std::uint64_t> switchedOff;
    std::function<void()> onLeft;
};

const UXEvent moved(UXEventType::MouseMove), gone(UXEventType::MouseLeave);

class KXLegendCellTest : public testing::Test {
protected:
    KXLegendCellTest()
    {
        provider.effect = [] { return new KXInteractionColorEffect({7, 8, 9}); };
        makeChart(2);
    }
    LegendChart& makeChart(std::uint64_t cellCount)
    {
        chart = std::make_unique<LegendChart>();
        diagram.addChild(chart.get());
        chart->setInteractionProvider(&provider);
        chart->cellCount = cellCount;
        return *chart;
    }
    /** @return how many identifiers each interaction was about, which is the index of the cell */
    std::vector<std::size_t> asked() const
    {
        std::vector<std::size_t> counts;
        for (const auto& identifiers : provider.objectIDs)
            counts.push_back(identifiers.size());
        return counts;
    }

    const UXFixedMeasurer measurer;
    KXTestProvider provider;
    UXDiagram diagram;
    const KXTestInput input{diagram};
    std::unique_ptr<LegendChart> chart;
};

} // namespace

TEST_F(KXLegendCellTest, StandsForEveryShownCellAtItsPlace)
{
    struct Case {
        const char* name;
        UXPosition position, align;
        std::uint64_t count;
        std::set<std::uint64_t> hidden;
        std::string expected; // 49 wide: symbol 17, gap 6, four letters of 6.5
    };
    using enum UXPosition;
    const Case cases[] = {
        {"no cells", Right, Left, 0, {}, ""},
        {"a column", Right, Left, 3, {}, "0:1,1 49 1:1,29 49 2:1,57 49"},
        {"a column without a hidden cell", Right, Left, 3, {1}, "0:1,1 49 2:1,29 49"},
        {"a row", Top, Left, 2, {}, "0:1,12 49 1:70,12 49"},
        {"a row of all but the first", Top, Right, 3, {0}, "1:1,12 49 2:70,12 49"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        makeChart(c.count).hidden = c.hidden;
        chart->getLegend()->setHorizontalAlign(c.align);
        chart->layoutAt(c.position);
        EXPECT_EQ(chart->places(), c.expected);
    }
}

TEST_F(KXLegendCellTest, ExistsOnlyWhereItIsSeenAmongTenThousand)
{
    for (const UXPosition position : {UXPosition::Right, UXPosition::Bottom}) {
        SCOPED_TRACE(static_cast<int>(position));
        makeChart(10000).label = [](std::uint64_t index) { return std::string(index % 7 + 1, 'x'); };
        chart->layoutAt(position);
        UXVirtualScrollView& view = chart->view();
        const bool isRow = position == UXPosition::Bottom;
        const auto scrollTo = [&](std::int64_t offset) {
            isRow ? view.setContentOffsetX(offset) : view.setContentOffsetY(offset);
            return chart->cells();
        };
        // One step lets objects move on: the same ones stand for their neighbours.
        const std::vector<KXLegendCell*> before = chart->cells();
        const int measured = measurer.askedCount;
        chart->askedLabels.clear();
        EXPECT_EQ(std::ranges::count(scrollTo(140), before[0]), 1);
        EXPECT_LE(chart->askedLabels.size(), 5u) << "cells that stay in view know their label";
        EXPECT_FALSE(chart->getRequireToVerifyLayout()) << "scrolling lays out nothing";

        // Wherever the view goes, no object lies outside it and none is missing between first and last.
        const UXRect area = view.obtainScrollContentRect();
        for (const std::int64_t offset : {0LL, 1LL, 27LL, 100003LL, 279000LL, 1LL << 40}) {
            const std::vector<KXLegendCell*> cells = scrollTo(offset);
            ASSERT_TRUE(cells.size() > 3 && cells.size() < 14) << cells.size();
            for (std::size_t i = 0; i < cells.size(); ++i) {
                EXPECT_EQ(cells[i]->getIndex(), cells[0]->getIndex() + i);
                EXPECT_EQ(cells[i]->getLabel(), chart->label(cells[i]->getIndex()));
                const UXRect rect = cells[i]->getRect();
                EXPECT_TRUE(isRow ? rect.x < area.x + area.width : rect.y < area.getBottom());
            }
        }
        EXPECT_EQ(chart->cells().back()->getIndex(), 9999u);
        EXPECT_EQ(measurer.askedCount, measured) << "scrolling measures nothing";
    }
}

TEST_F(KXLegendCellTest, PaintsItsSymbolAndItsLabelWithAnEllipsisThatItExplains)
{
    chart->label = [](std::uint64_t index) { return index == 0 ? "short" : std::string(60, 'x'); };
    KXLegend& legend = chart->layoutAt(UXPosition::Right);
    legend.setColorSeries({UXColor(1, 2, 3), UXColor(4, 5, 6)});
    const std::string text = uxPaintToText(*chart);
    for (const char* part : {"setColor 1,2,3", "setColor 4,5,6", "short", "EllipsisEnd"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;

    for (const bool showHint : {true, false}) {
        legend.setShowHint(showHint);
        for (KXLegendCell* cell : chart->cells()) {
            cell->mouseMove(moved);
            EXPECT_EQ(cell->getHintVisible(), showHint && cell->getIndex() == 1) << cell->getLabel();
            EXPECT_TRUE(!cell->getHintVisible() || cell->getHintInfo().title == cell->getLabel());
            cell->mouseLeave(gone);
            EXPECT_FALSE(cell->getHintVisible());
        }
    }
}

TEST_F(KXLegendCellTest, AsksTheProviderForTheCellThatItStandsForNow)
{
    KXLegend& legend = makeChart(100).layoutAt(UXPosition::Right);
    const auto click = [this](std::size_t place, UXEventType type) {
        return chart->cells()[place]->triggerEventHandler(UXEvent(type));
    };
    EXPECT_TRUE(click(3, UXEventType::LeftClick));
    EXPECT_TRUE(click(2, UXEventType::RightClick));
    EXPECT_TRUE(click(0, UXEventType::LeftClick)) << "handled, though the cell stands for nothing";
    chart->view().setContentOffsetY(28 * 10 + 1);
    click(0, UXEventType::LeftClick);
    EXPECT_EQ(asked(), (std::vector<std::size_t>{3, 2, 10}));

    KXLegendCell& cell = *chart->cells()[0];
    EXPECT_FALSE(cell.mouseDown(UXEvent(UXEventType::MouseDown)));
    legend.enableCellClick();
    EXPECT_TRUE(cell.mouseDown(UXEvent(UXEventType::MouseDown)));
    legend.disableCellClick();
    EXPECT_FALSE(cell.mouseUp(UXEvent(UXEventType::MouseUp)));
}

TEST_F(KXLegendCellTest, LooksUnderThePointerAsTheProviderSays)
{
    chart->layoutAt(UXPosition::Right);
    const auto isDrawnSo = [this] {
        return uxPaintToText(*chart).find("setColor 7,8,9") != std::string::npos;
    };
    chart->cells()[0]->mouseMove(moved);
    EXPECT_EQ(provider.count("effects"), 0) << "the cell stands for nothing";
    KXLegendCell* cell = chart->cells()[1];
    cell->mouseMove(moved);
    cell->mouseMove(moved);
    EXPECT_EQ(provider.count("effects"), 1);
    EXPECT_TRUE(isDrawnSo());
    cell->mouseLeave(gone);
    EXPECT_FALSE(isDrawnSo());

    int left = 0;
    chart->onLeft = [&left] { ++left; };
    cell->mouseMove(moved);
    chart->hidden = {1};
    chart->getLegend()->markCellVisibleUpdated();
    chart->layout();
    EXPECT_EQ(left, 1) << "a cell that goes is pointed at no more";
    chart->cells()[0]->mouseMove(moved);
    chart->getLegend()->setDelegate(nullptr);
    EXPECT_EQ(left, 2) << "the delegate before is told that nothing is pointed at";
    chart->getLegend()->setDelegate(chart.get());
    chart->layout();

    cell = chart->cells()[0];
    cell->mouseMove(moved);
    chart->onLeft = [this] { chart.reset(); };
    EXPECT_FALSE(cell->mouseLeave(gone)) << "who hears of it may destroy the chart";
    makeChart(2).layoutAt(UXPosition::Right);
    provider.onCall = [this](const std::string&) { chart.reset(); };
    EXPECT_FALSE(chart->cells()[1]->mouseMove(moved)) << "so may the provider";

    // So may the chart in its answers about cells that scroll into view, or it parts from the legend.
    for (const bool destroys : {true, false}) {
        KXLegend& legend = makeChart(100).layoutAt(UXPosition::Right);
        chart->label = [this, destroys, &legend](std::uint64_t) {
            if (destroys)
                chart.reset();
            else
                legend.setDelegate(nullptr);
            return std::string("late");
        };
        chart->view().setContentOffsetY(28 * 50);
        EXPECT_EQ(chart ? chart->cells().size() : 0, 0);
    }
}

TEST_F(KXLegendCellTest, TheKeyboardWalksClicksAndSwitches)
{
    using enum UXKeyCode;
    makeChart(50).hidden = {1};
    KXLegend& legend = chart->layoutAt(UXPosition::Right);
    const auto cellAt = [this](std::size_t place) {
        return chart->cells()[place]->translatePointToParent({2, 2}, nullptr);
    };
    EXPECT_FALSE(input.type(Down)) << "without the focus";
    diagram.setFocusedObject(&legend);
    EXPECT_FALSE(input.type(Enter)) << "there is no cell yet";

    // Ten cells of 28 and the top of one more show in 300.
    const std::pair<UXKeyCode, std::uint64_t> cases[] = {{Down, 0},   {Right, 2}, {Up, 0},   {Left, 0},
                                                         {End, 49},   {Down, 49}, {Home, 0}, {PageDown, 10},
                                                         {PageUp, 0}, {Down, 2}};
    for (const auto& [key, expected] : cases) {
        SCOPED_TRACE(static_cast<int>(key));
        EXPECT_TRUE(input.type(key));
        ASSERT_EQ(legend.getWalkedCell(), expected);
        EXPECT_TRUE(legend.isWalkedTo(expected));
        const std::vector<KXLegendCell*> cells = chart->cells();
        const auto found = std::ranges::find(cells, expected, &KXLegendCell::getIndex);
        ASSERT_NE(found, cells.end()) << "it is in view";
        const UXRect rect = (*found)->getRect(), area = chart->view().obtainScrollContentRect();
        EXPECT_TRUE(rect.y >= area.y && rect.getBottom() <= area.getBottom());
    }

    EXPECT_TRUE(input.type(Enter));
    EXPECT_EQ(asked(), std::vector<std::size_t>{2}) << "as a click";
    EXPECT_TRUE(input.type(Space));
    EXPECT_TRUE(chart->switchedOff.empty()) << "the legend takes no clicks";
    legend.enableCellClick();
    input.type(Down);
    input.type(Space);
    EXPECT_TRUE(chart->switchedOff.contains(3));
    input.press(cellAt(2));
    EXPECT_EQ(diagram.getFocusedObject(), &legend);
    EXPECT_FALSE(legend.isWalkedTo(3)) << "a press shows no mark";
    input.release(cellAt(2));
    EXPECT_TRUE(chart->switchedOff.empty());
    EXPECT_EQ(asked().back(), 3u);

    chart->getChartProperty()->setEnableInteraction(false);
    provider.calls.clear();
    input.type(Enter);
    input.type(Space);
    input.move(cellAt(4));
    EXPECT_TRUE(chart->switchedOff.empty());
    EXPECT_EQ(provider.count("operation") + provider.count("effects"), 0);
}

TEST_F(KXLegendCellTest, TheKeyboardWalksWhatWasLaidOutLast)
{
    using Change = std::function<void(LegendChart&)>;
    const std::pair<const char*, Change> cases[] = {
        {"another arrangement",
         [](LegendChart& c) { c.getChartProperty()->updateLegendPosition(UXPosition::Top); }},
        {"fewer cells", [](LegendChart& c) { c.cellCount = 1; }},
        {"more cells", [](LegendChart& c) { c.cellCount = 100; }},
        {"none in sight", [](LegendChart& c) { c.getChartProperty()->updateShowLegend(false); }},
    };
    for (const auto& [name, change] : cases) {
        SCOPED_TRACE(name);
        diagram.setFocusedObject(&makeChart(3).layoutAt(UXPosition::Right));
        input.type(UXKeyCode::Down);
        change(*chart);
        for (const UXKeyCode key : {UXKeyCode::Down, UXKeyCode::End, UXKeyCode::PageUp})
            input.type(key);
        EXPECT_LT(chart->getLegend()->getWalkedCell().value_or(0), 3u) << "of what the user still sees";
        diagram.layout();
        input.type(UXKeyCode::End);
    }
}

TEST_F(KXLegendCellTest, ShowsWhereTheKeyboardIsAndWhatIsOff)
{
    makeChart(40).switchedOff = {0};
    KXLegend& legend = chart->layoutAt(UXPosition::Right);
    legend.setColorSeries({UXColor(1, 2, 3)});
    legend.setScrollBarColor(UXColor(4, 5, 6));
    legend.setScrollBarSliderColor(UXColor(7, 8, 9));
    const std::string usual = uxPaintToText(*chart);
    for (const char* color : {"120,120,120,0.5", "setColor 4,5,6", "setColor 7,8,9"})
        EXPECT_NE(usual.find(color), std::string::npos) << color << usual;
    diagram.setFocusedObject(&legend);
    input.type(UXKeyCode::Home);
    EXPECT_NE(uxPaintToText(*chart), usual);
    diagram.setFocusedObject(nullptr);
    EXPECT_EQ(uxPaintToText(*chart), usual) << "the mark goes with the focus";

    // The hand shows where the chart is edited, and not where it is presented.
    KXLegendCell& cell = *chart->cells()[1];
    UXEvent presenting = moved;
    presenting.addUseCase(1);
    cell.mouseMove(moved);
    EXPECT_EQ(cell.getCursor(), UXCursor::PointingHand);
    cell.mouseMove(presenting);
    EXPECT_EQ(cell.getCursor(), UXCursor::AsParent);
}
