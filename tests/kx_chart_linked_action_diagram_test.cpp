#include "kx_chart_linked_action_diagram.h"

#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_gauge_chart.h"
#include "kx_interaction_color_effect.h"
#include "kx_test_input.h"
#include "kx_test_provider.h"
#include "kx_value_chart.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>

namespace {

/** A provider whose items answer to those of the others as a test says. */
class LinkedProvider : public KXTestProvider {
public:
    LinkedProvider()
    {
        wantsHighlight = true;
        number = 50;
        valueCount = 4;
        hint = [](const KXIndexPath&) { return KXChartDataProviderHintData{"matching", "item"}; };
    }
    KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                         KXChartDataProvider* target) override
    {
        EXPECT_EQ(target, this);
        paths.push_back(*path);
        if (onTarget)
            onTarget();
        if (!matches)
            return nullptr;
        auto* answer = new KXChartDataPath;
        answer->valueIndexPath = {*matches, 0};
        answer->dimensionIndexPath = member;
        return answer;
    }
    std::optional<std::uint64_t> matches = 0;
    KXIndexPath member;
    std::function<void()> onTarget;
};

/** Three value charts side by side and a gauge, linked. */
class KXChartLinkedActionDiagramTest : public testing::Test {
protected:
    KXChartLinkedActionDiagramTest()
    {
        diagram.registerGlobalEventDiagram(linked.get());
        diagram.setRect(uxMakeRect(0, 0, 1000, 200));
        for (int i = 0; i < 3; ++i) {
            providers[i].valueCount = 1;
            charts[i] = std::make_unique<KXValueChart>();
            load(*charts[i], *charts[i], providers[i], 200 * i);
        }
        gauge = std::make_unique<KXGaugeChart>();
        gauge->setCustomMinValue(true);
        gauge->setCustomMaxValue(true);
        load(*gauge, *gauge, providers[3], 600);
        diagram.layout();
    }
    void load(KXChart& chart, KXChartDataUser& user, LinkedProvider& provider, int left)
    {
        chart.getChartProperty()->setShowTitle(false);
        chart.setAlign(UXAlign::None);
        diagram.addChild(&chart);
        chart.setRect(uxMakeRect(left, 0, 200, 200));
        user.setDataProvider(&provider);
        user.prepareData();
        user.reloadData();
    }
    void moveTo(int x, int y) { input.move({x, y}); }
    static UXPoint valueOf(int chart) { return {200 * chart + 5, 5}; }
    void hover(int chart) { input.move(valueOf(chart)); }
    void click(int chart)
    {
        input.press(valueOf(chart));
        input.release(valueOf(chart));
    }
    /** @return a letter for each value chart and each measure of the gauge: Lit, Dimmed or - */
    std::string states() const
    {
        std::string text;
        const auto write = [&text](const KXChartLabel* label) {
            text += "-LD"[static_cast<int>(label->getHighlightState())];
        };
        for (const auto& chart : charts)
            if (chart)
                write(chart->getValueLabel());
        if (gauge) {
            text += " ";
            for (const KXChartLabel* label :
                 {gauge->getMainLabel(), gauge->getTargetLabel(), gauge->getMinLabel(), gauge->getMaxLabel()})
                write(label);
        }
        return text;
    }

    const UXFixedMeasurer measurer;
    LinkedProvider providers[4];
    UXDiagram diagram;
    const KXTestInput input{diagram};
    std::unique_ptr<KXChartLinkedActionDiagram> linked = std::make_unique<KXChartLinkedActionDiagram>();
    std::unique_ptr<KXValueChart> charts[3];
    std::unique_ptr<KXGaugeChart> gauge;
};

TEST_F(KXChartLinkedActionDiagramTest, WhatOneChartPointsAtStandsOutInTheOthers)
{
    using enum KXHighlightResult;
    const std::tuple<const char*, std::function<void()>, std::string, KXHighlightResult, KXHighlightResult>
        cases[] = {
            {"every match", [] {}, "-LL LDDD", Highlighted, Highlighted},
            {"a member of a dimension",
             [this] {
                 providers[1].member = providers[3].member = {0, 0};
             },
             "--L ----", NotFound, NotFound},
            {"another measure",
             [this] {
                 providers[1].member = providers[3].member = {};
                 providers[3].matches = 2;
             },
             "-LL DDLD", Highlighted, Highlighted},
            {"no such measure", [this] { providers[3].matches = 9; }, "-LL ----", Highlighted, NotFound},
            {"no match", [this] { providers[1].matches.reset(); }, "--L ----", NotFound, NotFound},
            {"a chart that answers no pointer",
             [this] { charts[2]->getChartProperty()->updateEnableInteraction(false); }, "--- ----", NotFound,
             NotFound},
            {"the host wants none", [this] { providers[0].wantsHighlight = false; }, "--- ----", TakesNoPart,
             TakesNoPart},
            {"the chart answers no pointer",
             [this] {
                 providers[0].wantsHighlight = true;
                 charts[0]->getChartProperty()->updateEnableInteraction(false);
             },
             "--- ----", TakesNoPart, TakesNoPart},
        };
    for (const auto& [name, change, expected, ofSecond, ofGauge] : cases) {
        SCOPED_TRACE(name);
        change();
        diagram.layout();
        hover(0);
        EXPECT_EQ(states(), expected);
        EXPECT_EQ(linked->obtainHighlightResult(charts[1].get()), ofSecond);
        EXPECT_EQ(linked->obtainHighlightResult(gauge.get()), ofGauge);
        EXPECT_EQ(charts[1]->getHintVisible(), ofSecond == Highlighted);
        moveTo(5, 190);
        EXPECT_EQ(states(), "--- ----");
        EXPECT_EQ(linked->getHighlightSource(), nullptr);
        EXPECT_FALSE(charts[1]->getHintVisible());
    }
    EXPECT_EQ(providers[1].paths.front().identifier, "ValueLabel") << "the source's path is what is matched";
}

TEST_F(KXChartLinkedActionDiagramTest, TheDialAsksForItsValueAndLooksAsTheHostSays)
{
    const std::string usual = uxPaintToText(*charts[0]);
    const UXRect pipe = gauge->getPipeRect();
    moveTo(600 + pipe.x + 3, pipe.getBottom() - 1);
    EXPECT_EQ(states(), "LLL ----");
    EXPECT_EQ(linked->getHighlightSource(), gauge->getMainLabel());
    EXPECT_NE(uxPaintToText(*charts[0]), usual) << "a match stands out also where the host says nothing";
    moveTo(605, 195);
    EXPECT_EQ(uxPaintToText(*charts[0]), usual);

    providers[0].effect = [] { return new KXInteractionColorEffect({9, 8, 7}); };
    providers[3].effect = [] { return new KXInteractionColorEffect({6, 5, 4}); };
    hover(1);
    EXPECT_NE(uxPaintToText(*charts[0]).find("9,8,7"), std::string::npos);
    EXPECT_NE(uxPaintToText(*gauge).find("setColor 6,5,4"), std::string::npos)
        << "the needle belongs to the value";
    input.leave();
    EXPECT_EQ(uxPaintToText(*charts[0]), usual);
}

TEST_F(KXChartLinkedActionDiagramTest, ASelectedItemAsksUntilItIsSelectedNoLonger)
{
    charts[0]->getValueLabel()->setSelectable(true);
    click(0);
    moveTo(5, 190);
    EXPECT_EQ(states(), "-LL LDDD") << "the pointer has gone, the selection stays";
    hover(1);
    EXPECT_EQ(states(), "L-L LDDD");
    moveTo(205, 190);
    EXPECT_EQ(states(), "-LL LDDD") << "the selection shows again";
    click(0);
    moveTo(5, 190);
    EXPECT_EQ(states(), "--- ----");

    charts[0]->getValueLabel()->setSelected(true);
    EXPECT_EQ(states(), "-LL LDDD") << "selected by the host";
    input.type(UXKeyCode::Escape);
    EXPECT_EQ(states(), "--- ----");
    EXPECT_FALSE(charts[0]->getValueLabel()->getSelected());
}

TEST_F(KXChartLinkedActionDiagramTest, ChartsComeAndGoWhileAHighlightStands)
{
    hover(0);
    charts[1].reset();
    EXPECT_EQ(states(), "-L LDDD");
    charts[1] = std::make_unique<KXValueChart>();
    load(*charts[1], *charts[1], providers[1], 200);
    diagram.layout();
    EXPECT_EQ(states(), "-LL LDDD") << "a new chart joins in";
    providers[3].matches = 2;
    gauge->reloadData();
    diagram.layout();
    EXPECT_EQ(states(), "-LL DDLD") << "so does one with new data";
    diagram.removeChild(charts[2].get());
    charts[0].reset();
    EXPECT_EQ(states(), "-- ----") << "the highlight goes with the chart that asked for it, everywhere";

    hover(1);
    EXPECT_EQ(linked->getHighlightSource(), charts[1]->getValueLabel());
    diagram.unregisterGlobalEventDiagram(linked.get());
    EXPECT_EQ(states(), "-- ----");
    diagram.registerGlobalEventDiagram(linked.get());
    charts[1]->getValueLabel()->setSelectable(true);
    charts[1]->getValueLabel()->setSelected(true);
    EXPECT_EQ(states(), "-- DDLD");
    linked.reset();
    EXPECT_EQ(states(), "-- ----");

    linked = std::make_unique<KXChartLinkedActionDiagram>();
    diagram.registerGlobalEventDiagram(linked.get());
    providers[3].onTarget = [this] { linked.reset(); };
    moveTo(205, 190);
    hover(1);
    EXPECT_EQ(linked, nullptr);
    EXPECT_EQ(states(), "-- ----") << "the linking may go while a provider answers";
}

/** Whatever happens in whatever order, nothing stays lit once the pointer and every selection have gone. */
TEST_F(KXChartLinkedActionDiagramTest, NothingStaysLitAfterARandomWalk)
{
    std::mt19937 random(7);
    const auto pick = [&random](int count) { return static_cast<int>(random() % unsigned(count)); };
    for (int step = 0; step < 3000; ++step) {
        const int place = pick(3);
        switch (pick(9)) {
        case 0:
            charts[place].reset();
            break;
        case 1:
            if (!charts[place])
                charts[place] = std::make_unique<KXValueChart>();
            charts[place]->getValueLabel()->setSelectable(pick(2) == 0);
            load(*charts[place], *charts[place], providers[place], 200 * place);
            break;
        case 2:
            click(place);
            break;
        case 3:
            providers[pick(4)].wantsHighlight = pick(3) != 0;
            break;
        case 4:
            diagram.layout();
            break;
        case 5: // a host that destroys a chart while it answers, now and then
            providers[place].onTarget = {};
            if (pick(4) == 0)
                providers[place].onTarget = [this, doomed = pick(3)] { charts[doomed].reset(); };
            break;
        default:
            moveTo(pick(1000), pick(200));
            break;
        }
    }
    input.leave();
    input.type(UXKeyCode::Escape);
    diagram.layout();
    EXPECT_EQ(states().find_first_of("LD"), std::string::npos) << states();
}

} // namespace
