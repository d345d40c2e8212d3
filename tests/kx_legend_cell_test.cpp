#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_property.h"
#include "kx_interaction_color_effect.h"
#include "kx_interaction_provider.h"
#include "kx_legend.h"
#include "kx_legend_cell.h"
#include "kx_object_id.h"
#include "ux/ux_diagram.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <set>

namespace {

/** A chart of a given number of legend cells, which notes whose labels its legend asks for. */
class LegendChart : public KXChart, public KXChartDataUser {
public:
    LegendChart() : KXChartDataUser(this) { setRect(uxMakeRect(0, 0, 402, 302)); }
    void customPrepareData(KXChartDataProvider*, bool&) override {}
    void customReloadData() override {}
    std::uint64_t obtainLegendCellSize() override { return cellCount; }
    std::string obtainLegendLabel(std::uint64_t index) override
    {
        askedLabels.push_back(index);
        return label ? label(index) : "cell";
    }
    bool obtainLegendShouldShowCell(std::uint64_t index) override { return !hidden.contains(index); }
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
        std::sort(found.begin(), found.end(), [](auto* a, auto* b) { return a->getIndex() < b->getIndex(); });
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

    std::uint64_t cellCount = 0;
    std::set<std::uint64_t> hidden, switchedOff;
    std::function<std::string(std::uint64_t)> label;
    std::vector<std::uint64_t> askedLabels;
    std::function<void()> onLeft;

protected:
    void _customLayout(UXRect) override {}
};

/** Notes how many identifiers each question brings, which here is the index of the cell. */
class AskedProvider : public KXInteractionProvider {
public:
    KXInteractionOperation obtainInteractionOperation(const std::vector<KXObjectID>& objectIDs,
                                                      const KXInteractionEventInfo&) override
    {
        asked.push_back(objectIDs.size());
        return {};
    }
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        ++effectsAsked;
        if (onEffects)
            onEffects();
        return {new KXInteractionColorEffect({7, 8, 9})};
    }
    std::vector<std::size_t> asked;
    int effectsAsked = 0;
    std::function<void()> onEffects;
};

UXEvent makeEvent(UXEventType type) { return UXEvent(type); }

} // namespace

TEST(KXLegendCell, StandsForEveryShownCellAtItsPlace)
{
    const UXFixedMeasurer measurer;
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
        LegendChart chart;
        chart.cellCount = c.count;
        chart.hidden = c.hidden;
        chart.getLegend()->setHorizontalAlign(c.align);
        chart.layoutAt(c.position);
        EXPECT_EQ(chart.places(), c.expected);
    }
}

TEST(KXLegendCell, ExistsOnlyWhereItIsSeenAmongTenThousand)
{
    const UXFixedMeasurer measurer;
    for (const UXPosition position : {UXPosition::Right, UXPosition::Bottom}) {
        SCOPED_TRACE(static_cast<int>(position));
        LegendChart chart;
        chart.cellCount = 10000;
        chart.label = [](std::uint64_t index) { return std::string(index % 7 + 1, 'x'); };
        chart.layoutAt(position);
        const std::size_t shown = chart.cells().size();
        EXPECT_GT(shown, 3u);
        EXPECT_LT(shown, 14u);

        // One step lets objects move on: the same ones stand for their neighbours.
        const std::vector<KXLegendCell*> before = chart.cells();
        const int measured = measurer.askedCount;
        const bool isRow = position == UXPosition::Bottom;
        const auto scrollTo = [&chart, isRow](std::int64_t offset) {
            if (isRow)
                chart.view().setContentOffsetX(offset);
            else
                chart.view().setContentOffsetY(offset);
        };
        chart.askedLabels.clear();
        scrollTo(140);
        const std::vector<KXLegendCell*> after = chart.cells();
        EXPECT_LE(chart.askedLabels.size(), 5u) << "cells that stay in view know their label";
        EXPECT_TRUE(std::find(after.begin(), after.end(), before[0]) != after.end());
        EXPECT_FALSE(chart.getRequireToVerifyLayout()) << "scrolling lays out nothing";

        // Wherever the view goes, no cell object lies outside it and none is missing between the first and
        // the last.
        const UXRect area = chart.view().obtainScrollContentRect();
        for (const std::int64_t offset : {std::int64_t{1}, std::int64_t{27}, std::int64_t{100003},
                                          std::int64_t{279000}, std::int64_t{1} << 40, std::int64_t{0}}) {
            scrollTo(offset);
            const std::vector<KXLegendCell*> cells = chart.cells();
            ASSERT_FALSE(cells.empty());
            EXPECT_LT(cells.size(), 14u);
            for (std::size_t i = 0; i < cells.size(); ++i) {
                EXPECT_EQ(cells[i]->getIndex(), cells[0]->getIndex() + i);
                EXPECT_EQ(cells[i]->getLabel(), chart.label(cells[i]->getIndex()));
                const UXRect rect = cells[i]->getRect();
                EXPECT_TRUE(isRow ? rect.x < area.x + area.width : rect.y < area.getBottom());
            }
            if (offset == std::int64_t{1} << 40) {
                EXPECT_EQ(cells.back()->getIndex(), 9999u);
            }
        }
        EXPECT_EQ(measurer.askedCount, measured) << "scrolling measures nothing";
    }
}

TEST(KXLegendCell, PaintsItsSymbolAndItsLabelWithAnEllipsis)
{
    const UXFixedMeasurer measurer;
    LegendChart chart;
    chart.cellCount = 2;
    chart.label = [](std::uint64_t index) { return index == 0 ? "short" : std::string(60, 'x'); };
    KXLegend& legend = chart.layoutAt(UXPosition::Right);
    legend.setColorSeries({UXColor(1, 2, 3), UXColor(4, 5, 6)});
    const std::string text = uxPaintToText(chart);
    for (const char* part : {"setColor 1,2,3", "setColor 4,5,6", "short", "EllipsisEnd"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
}

TEST(KXLegendCell, ExplainsALabelThatIsCut)
{
    const UXFixedMeasurer measurer;
    struct Case {
        const char* name;
        bool showHint;
        std::size_t letters;
        bool expected;
    };
    const Case cases[] = {
        {"cut", true, 60, true}, {"whole", true, 5, false}, {"hints are off", false, 60, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        LegendChart chart;
        chart.cellCount = 1;
        chart.label = [&c](std::uint64_t) { return std::string(c.letters, 'x'); };
        chart.layoutAt(UXPosition::Right).setShowHint(c.showHint);
        KXLegendCell& cell = *chart.cells()[0];
        cell.mouseMove(makeEvent(UXEventType::MouseMove));
        EXPECT_EQ(cell.getHintVisible(), c.expected);
        if (c.expected) {
            EXPECT_EQ(cell.getHintInfo().title, cell.getLabel());
        }
        cell.mouseLeave(makeEvent(UXEventType::MouseLeave));
        EXPECT_FALSE(cell.getHintVisible());
    }
}

TEST(KXLegendCell, AsksTheProviderForTheCellThatItStandsForNow)
{
    const UXFixedMeasurer measurer;
    AskedProvider provider;
    LegendChart chart;
    chart.setInteractionProvider(&provider);
    chart.cellCount = 100;
    KXLegend& legend = chart.layoutAt(UXPosition::Right);
    const auto click = [&chart](std::size_t place, UXEventType type) {
        return chart.cells()[place]->triggerEventHandler(UXEvent(type));
    };
    EXPECT_TRUE(click(3, UXEventType::LeftClick));
    EXPECT_TRUE(click(2, UXEventType::RightClick));
    EXPECT_TRUE(click(0, UXEventType::LeftClick)) << "handled, though the cell stands for nothing";
    chart.view().setContentOffsetY(28 * 10 + 1);
    click(0, UXEventType::LeftClick);
    EXPECT_EQ(provider.asked, (std::vector<std::size_t>{3, 2, 10}));

    KXLegendCell& cell = *chart.cells()[0];
    EXPECT_FALSE(cell.mouseDown(makeEvent(UXEventType::MouseDown)));
    legend.enableCellClick();
    EXPECT_TRUE(cell.mouseDown(makeEvent(UXEventType::MouseDown)));
    legend.disableCellClick();
    EXPECT_FALSE(cell.mouseUp(makeEvent(UXEventType::MouseUp)));
}

TEST(KXLegendCell, LooksUnderThePointerAsTheProviderSays)
{
    const UXFixedMeasurer measurer;
    AskedProvider provider;
    auto chart = std::make_unique<LegendChart>();
    chart->setInteractionProvider(&provider);
    chart->cellCount = 2;
    chart->layoutAt(UXPosition::Right);
    const auto isDrawnSo = [&chart] {
        return uxPaintToText(*chart).find("setColor 7,8,9") != std::string::npos;
    };
    const UXEvent move(UXEventType::MouseMove);
    chart->cells()[0]->mouseMove(move);
    EXPECT_EQ(provider.effectsAsked, 0) << "the cell stands for nothing";
    KXLegendCell* cell = chart->cells()[1];
    cell->mouseMove(move);
    cell->mouseMove(move);
    EXPECT_EQ(provider.effectsAsked, 1);
    EXPECT_TRUE(isDrawnSo());
    cell->mouseLeave(UXEvent(UXEventType::MouseLeave));
    EXPECT_FALSE(isDrawnSo());

    int left = 0;
    chart->onLeft = [&left] { ++left; };
    cell->mouseMove(move);
    chart->hidden = {1};
    chart->getLegend()->markCellVisibleUpdated();
    chart->layout();
    EXPECT_EQ(left, 1) << "a cell that goes is pointed at no more";

    cell = chart->cells()[0];
    provider.onEffects = {};
    cell->mouseMove(move);
    chart->onLeft = [&chart] { chart.reset(); };
    EXPECT_FALSE(cell->mouseLeave(UXEvent(UXEventType::MouseLeave)))
        << "who hears of it may destroy the chart";

    chart = std::make_unique<LegendChart>();
    chart->setInteractionProvider(&provider);
    chart->cellCount = 2;
    chart->layoutAt(UXPosition::Right);
    provider.onEffects = [&chart] { chart.reset(); };
    EXPECT_FALSE(chart->cells()[1]->mouseMove(move)) << "the provider may destroy the chart";
}

TEST(KXLegendCell, TheKeyboardWalksClicksAndSwitches)
{
    const UXFixedMeasurer measurer;
    AskedProvider provider;
    UXDiagram diagram;
    LegendChart chart;
    diagram.addChild(&chart);
    chart.setInteractionProvider(&provider);
    chart.cellCount = 50;
    chart.hidden = {1};
    KXLegend& legend = chart.layoutAt(UXPosition::Right);
    const auto press = [&diagram](UXKeyCode key) {
        UXEvent event;
        event.setKeyCode(static_cast<int>(key));
        return diagram.keyDown(event);
    };
    const auto mouse = [&](bool (UXObject::*entry)(const UXEvent&), std::size_t place) {
        UXEvent event;
        event.setMousePoint(chart.cells()[place]->translatePointToParent({2, 2}, nullptr));
        return (diagram.*entry)(event);
    };
    EXPECT_FALSE(press(UXKeyCode::Down)) << "without the focus";
    diagram.setFocusedObject(&legend);
    EXPECT_FALSE(press(UXKeyCode::Enter)) << "there is no cell yet";

    using enum UXKeyCode;
    struct Case {
        UXKeyCode key;
        std::uint64_t expected;
    };
    // Ten cells of 28 and the top of one more show in 300.
    const Case cases[] = {{Down, 0},  {Right, 2}, {Up, 0},        {Left, 0},   {End, 49},
                          {Down, 49}, {Home, 0},  {PageDown, 10}, {PageUp, 0}, {Down, 2}};
    for (const Case& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.key));
        EXPECT_TRUE(press(c.key));
        ASSERT_EQ(legend.getWalkedCell(), c.expected);
        EXPECT_TRUE(legend.isWalkedTo(c.expected));
        const std::vector<KXLegendCell*> cells = chart.cells();
        const auto found = std::find_if(cells.begin(), cells.end(), [&](const KXLegendCell* cell) {
            return cell->getIndex() == c.expected;
        });
        ASSERT_NE(found, cells.end()) << "it is in view";
        const UXRect rect = (*found)->getRect(), area = chart.view().obtainScrollContentRect();
        EXPECT_TRUE(rect.y >= area.y && rect.getBottom() <= area.getBottom());
    }

    EXPECT_TRUE(press(Enter));
    EXPECT_EQ(provider.asked, std::vector<std::size_t>{2}) << "as a click";
    EXPECT_TRUE(press(Space));
    EXPECT_TRUE(chart.switchedOff.empty()) << "the legend takes no clicks";
    legend.enableCellClick();
    press(Down);
    press(Space);
    EXPECT_TRUE(chart.switchedOff.contains(3));
    mouse(&UXObject::mouseDown, 2);
    EXPECT_EQ(diagram.getFocusedObject(), &legend);
    EXPECT_FALSE(legend.isWalkedTo(3)) << "a press shows no mark";
    mouse(&UXObject::mouseUp, 2);
    EXPECT_TRUE(chart.switchedOff.empty());
    EXPECT_EQ(provider.asked.back(), 3u);

    chart.getChartProperty()->setEnableInteraction(false);
    const std::size_t asked = provider.asked.size();
    press(Enter);
    press(Space);
    const int effectsAsked = provider.effectsAsked;
    mouse(&UXObject::mouseMove, 4);
    EXPECT_TRUE(chart.switchedOff.empty());
    EXPECT_EQ(provider.asked.size(), asked);
    EXPECT_EQ(provider.effectsAsked, effectsAsked);
}

TEST(KXLegendCell, ShowsWhereTheKeyboardIsAndWhatIsOff)
{
    const UXFixedMeasurer measurer;
    UXDiagram diagram;
    LegendChart chart;
    diagram.addChild(&chart);
    chart.cellCount = 40;
    chart.switchedOff = {0};
    KXLegend& legend = chart.layoutAt(UXPosition::Right);
    legend.setColorSeries({UXColor(1, 2, 3)});
    legend.setScrollBarColor(UXColor(4, 5, 6));
    legend.setScrollBarSliderColor(UXColor(7, 8, 9));
    const std::string usual = uxPaintToText(chart);
    for (const char* color : {"120,120,120,0.5", "setColor 4,5,6", "setColor 7,8,9"})
        EXPECT_NE(usual.find(color), std::string::npos) << color << usual;
    diagram.setFocusedObject(&legend);
    UXEvent key;
    key.setKeyCode(static_cast<int>(UXKeyCode::Home));
    diagram.keyDown(key);
    EXPECT_NE(uxPaintToText(chart), usual);
    diagram.setFocusedObject(nullptr);
    EXPECT_EQ(uxPaintToText(chart), usual) << "the mark goes with the focus";

    // The hand shows where the chart is edited, and not where it is presented.
    KXLegendCell& cell = *chart.cells()[1];
    UXEvent move(UXEventType::MouseMove);
    cell.mouseMove(move);
    EXPECT_EQ(cell.getCursor(), UXCursor::PointingHand);
    move.addUseCase(1);
    cell.mouseMove(move);
    EXPECT_EQ(cell.getCursor(), UXCursor::AsParent);
}
