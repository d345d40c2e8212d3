#include "kx_pie_chart.h"

#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_chart_selection_provider.h"
#include "kx_load_chart.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_test_input.h"
#include "ux/ux_saturate.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <tuple>

namespace {

/** Named numbers, in one row or several, of which a user can choose some; it keeps the choice by name. */
class MemberProvider : public KXPanelChartDataProvider, public KXChartSelectionProvider {
public:
    std::vector<std::pair<std::string, double>> members{{"a", 1}, {"b", 2}, {"c", 1}};
    std::uint64_t rowCount = 0; // of the second dimension; row r has values r times as large, plus 1
    std::set<std::string> chosen;
    bool canSelect = true, answersAtOnce = false;
    int askedOneByOne = 0;
    std::vector<KXChartDataPath> clicked;
    std::vector<KXIndexPath> red;
    int asked = 0;
    std::function<void()> onCall;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return _answer(members.empty()); }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return _answer(dimension == 0 ? members.size() : dimension == 1 ? rowCount : 0);
    }
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer(path.at(0) == 0 ? members.at(path.at(1)).first : "row" + std::to_string(path.at(1)));
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return _answer(std::uint64_t{1}); }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        const double value = members.at(path.at(1)).second;
        return _answer(path.size() > 2 ? value * static_cast<double>(path[2]) + 1 : value);
    }
    bool obtainValueDataColor(KXChartDataUser*, const KXIndexPath& path, UXColor& color) override
    {
        color = UXColor(255, 0, 0);
        return _answer(std::ranges::count(red, path) > 0);
    }
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*) override
    {
        return _answer(true);
    }
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        clicked.push_back(*path);
        return _answer(std::function<void()>());
    }
    bool obtainCanSelect(KXChartDataUser*) override { return _answer(canSelect); }
    bool obtainIsSelected(KXChartDataPath* path) override
    {
        ++askedOneByOne;
        return _answer(chosen.contains(_nameOf(*path)));
    }
    bool obtainSelectedPaths(KXChartDataUser*, std::vector<KXChartDataPath>& paths) override
    {
        for (std::size_t i = 0; answersAtOnce && i < members.size(); ++i)
            if (chosen.contains(members[i].first))
                paths.emplace_back().dimensionIndexPath = {0, i};
        return _answer(answersAtOnce);
    }
    void selectionChanged(KXChartDataUser*, const std::vector<KXChartDataPath>& paths) override
    {
        chosen.clear();
        for (const KXChartDataPath& path : paths)
            chosen.insert(_nameOf(path));
        _answer(true);
    }
    std::string obtainChosen() const
    {
        std::string text;
        for (const std::string& name : chosen)
            text += name;
        return text;
    }

private:
    std::string _nameOf(const KXChartDataPath& path) const
    {
        return members.at(path.dimensionIndexPath.at(1)).first;
    }
    template <class T>
    T _answer(T value)
    {
        ++asked;
        if (onCall)
            onCall(); // may destroy anything but this
        return value;
    }
};

class KXMemberPanelChartTest : public testing::Test {
protected:
    KXMemberPanelChartTest()
    {
        diagram.setRect({0, 0, 400, 302});
        makeChart();
    }
    void makeChart()
    {
        chart = std::make_unique<KXPieChart>();
        chart->setAlign(UXAlign::None);
        chart->getChartProperty()->setShowTitle(false);
        chart->getChartProperty()->setShowLegend(false);
        chart->setLabelPosition(KXPieLabelPosition::Inside);
        chart->setShowLabelPercentage(false);
        diagram.addChild(chart.get());
        kxLoad(*chart, provider, {0, 0, 400, 302});
    }
    UXPoint middleOf(std::uint64_t group, std::uint64_t index = 0) const
    {
        for (const KXPanelItem& item : chart->getLaidOutItems())
            if (item.item == KXChartItem{0, group, index})
                return {uxSaturateToInt(item.shape.obtainMiddle().x),
                        uxSaturateToInt(item.shape.obtainMiddle().y)};
        return {};
    }
    /** @return whether a slice is drawn in all of the colour, and not in a fainter one */
    bool isDrawnIn(const UXColor& color) const
    {
        const std::string text = "setColor " + std::to_string(color.red) + "," + std::to_string(color.green) +
                                 "," + std::to_string(color.blue) + ",1\n";
        return uxPaintToText(*chart).find(text) != std::string::npos;
    }
    void click(std::uint64_t group, std::optional<UXEventKey> key = {})
    {
        UXEvent event = KXTestInput::at(middleOf(group));
        if (key)
            event.addEventKey(*key);
        diagram.mouseDown(event);
        diagram.mouseUp(event);
    }
    void type(UXKeyCode code, std::optional<UXEventKey> key = {})
    {
        UXEvent event;
        event.setKeyCode(static_cast<int>(code));
        if (key)
            event.addEventKey(*key);
        diagram.keyDown(event);
    }
    std::string obtainHint() const
    {
        const UXHintInfo& info = chart->UXHintDelegate::getHintInfo();
        return info.title + "=" + info.text;
    }

    const UXFixedMeasurer measurer;
    MemberProvider provider;
    UXDiagram diagram;
    const KXTestInput input{diagram};
    std::unique_ptr<KXPieChart> chart;
};

TEST_F(KXMemberPanelChartTest, APanelOfSlicesAnswersPointerLegendAndLinks)
{
    EXPECT_EQ(uxFindMissing(uxPaintToText(*chart), {"\"a\"", "\"b\"", "\"c\""}), "");
    input.move(middleOf(1));
    EXPECT_EQ(obtainHint(), "b=2 (50.0 %)");
    EXPECT_TRUE(isDrawnIn(chart->obtainGroupColor(1)));
    EXPECT_FALSE(isDrawnIn(chart->obtainGroupColor(0))) << "what is beside it gives way";
    input.move(middleOf(2));
    EXPECT_FALSE(isDrawnIn(chart->obtainGroupColor(1)));
    input.move({3, 3});
    EXPECT_FALSE(chart->getHintVisible());
    EXPECT_TRUE(isDrawnIn(chart->obtainGroupColor(0)));
    click(2);
    ASSERT_EQ(provider.clicked.size(), 1);
    EXPECT_EQ(provider.clicked[0].identifier, "Slice");
    EXPECT_EQ(provider.clicked[0].dimensionIndexPath, (KXIndexPath{0, 2}));
    type(UXKeyCode::Escape);

    chart->legendCellHovered(0, true);
    EXPECT_FALSE(isDrawnIn(chart->obtainGroupColor(1)));
    chart->legendCellHovered(0, false);
    chart->legendCellClicked(1, {});
    chart->layout();
    EXPECT_FALSE(isDrawnIn(chart->obtainGroupColor(1)));
    std::swap(provider.members[0], provider.members[1]);
    kxLoad(*chart);
    EXPECT_FALSE(chart->isGroupShown(0)) << "b is known by its name";
    EXPECT_TRUE(chart->isGroupShown(1));
}

/** Two wholes of three slices: (1 1 1) and (2 3 2). */
TEST_F(KXMemberPanelChartTest, ASecondDimensionHasAWholeForEachOfItsMembers)
{
    provider.rowCount = 2;
    provider.red = {{0, 1, 1}};
    kxLoad(*chart);
    EXPECT_EQ(chart->obtainItemValue({0, 1, 1}), 3);
    EXPECT_TRUE(std::isnan(chart->obtainItemValue({0, 1, 2})));
    EXPECT_EQ(chart->obtainLegendCellSize(), 3);
    EXPECT_NE(chart->obtainGroupColor(1), UXColor(255, 0, 0));
    EXPECT_TRUE(isDrawnIn(UXColor(255, 0, 0)));
    input.move(middleOf(1, 1));
    EXPECT_EQ(obtainHint(), "b, row1=3 (42.8 %)");

    using Items = std::vector<KXChartItem>;
    const std::tuple<const char*, KXIndexPath, KXIndexPath, Items> paths[] = {
        {"a value", {0, 1, 1}, {0, 1}, {{0, 1, 1}}},
        {"a value by its row", {0, 1, 1}, {1, 1}, {{0, 1, 1}}},
        {"a group", {}, {0, 2}, {{0, 2, 0}, {0, 2, 1}}},
        {"a row", {}, {1, 1}, {{0, 0, 1}, {0, 1, 1}, {0, 2, 1}}},
        {"a value of another", {0, 1, 0}, {0, 2}, {}},
        {"no such member", {}, {0, 3}, {}},
        {"no such dimension", {}, {2, 0}, {}},
        {"another measure", {1, 1, 0}, {0, 1}, {}},
        {"nothing", {}, {}, {}},
    };
    for (const auto& [name, value, member, items] : paths) {
        SCOPED_TRACE(name);
        KXChartDataPath path;
        path.valueIndexPath = value;
        path.dimensionIndexPath = member;
        EXPECT_EQ(chart->findItems(path), items);
    }
}

TEST_F(KXMemberPanelChartTest, AColorMovesNothingAndAsksNobody)
{
    provider.asked = 0;
    chart->setSeriesColors({UXColor(1, 2, 3), UXColor(250, 250, 250)});
    EXPECT_FALSE(chart->getRequireToVerifyLayout());
    EXPECT_TRUE(isDrawnIn(UXColor(250, 250, 250)));
    EXPECT_NE(uxPaintToText(*chart).find("color 38,38,38"), std::string::npos) << "read on a light ground";
    EXPECT_EQ(provider.asked, 0);
    chart->setHoleRatio(0.5);
    EXPECT_TRUE(chart->getRequireToVerifyLayout());
    KXPieChart read;
    EXPECT_TRUE(read.deserialize(chart->serialize(), nullptr));
    EXPECT_EQ(read.getSeriesColors(), chart->getSeriesColors());
    read.setHoleRatio(0);
    read.customResetProperties(KXChartResetType::All, chart.get(), {"Pie"});
    EXPECT_EQ(read.getHoleRatio(), 0.5);
    provider.members = {{"a", 0}, {"b", NAN}};
    kxLoad(*chart);
    EXPECT_NE(uxPaintToText(*chart).find("No data"), std::string::npos);
}

TEST_F(KXMemberPanelChartTest, TheHostKeepsWhatIsChosen)
{
    using enum UXEventKey;
    /** Items that are clicked one after the other, the last with a key. */
    const std::tuple<const char*, std::vector<std::uint64_t>, std::optional<UXEventKey>, const char*>
        steps[] = {
            {"a click", {1}, {}, "b"},
            {"another one", {2}, {}, "c"},
            {"with Ctrl beside it", {0}, Ctrl, "ac"},
            {"with Ctrl once more", {2}, Ctrl, "a"},
            {"with Shift along the order", {0, 2}, Shift, "abc"},
            {"against it", {1, 0}, Shift, "ab"},
            {"with Escape", {}, {}, ""},
        };
    for (const auto& [name, groups, key, expected] : steps) {
        SCOPED_TRACE(name);
        for (const std::uint64_t group : groups)
            click(group, group == groups.back() ? key : std::nullopt);
        if (groups.empty())
            type(UXKeyCode::Escape);
        input.leave();
        EXPECT_EQ(provider.obtainChosen(), expected);
        for (std::uint64_t i = 0; i < 3; ++i)
            EXPECT_EQ(isDrawnIn(chart->obtainGroupColor(i)),
                      !*expected ||
                          std::string(expected).find(provider.members[i].first) != std::string::npos)
                << "what is not chosen is dimmed";
    }
    click(1);
    std::swap(provider.members[1], provider.members[2]);
    kxLoad(*chart);
    EXPECT_EQ(chart->getItems()->getSelected(), (std::vector<KXChartItem>{{0, 2, 0}}));
    for (const KXPanelItem& item : chart->getLaidOutItems())
        EXPECT_EQ(item.shift != UXDoublePoint(), item.item.group == 2) << "what is chosen is pulled out";
    input.click({3, 3});
    EXPECT_EQ(provider.obtainChosen(), "") << "beside all";
    provider.canSelect = false;
    click(1);
    EXPECT_EQ(provider.obtainChosen(), "");
    provider.canSelect = true;
    provider.members.clear();
    for (int i = 0; i < 30'000; ++i)
        provider.members.emplace_back("m" + std::to_string(i), 1);
    provider.chosen = {"m29999"};
    for (const bool atOnce : {false, true}) {
        provider.answersAtOnce = atOnce;
        provider.askedOneByOne = 0;
        kxLoad(*chart);
        EXPECT_EQ(chart->getItems()->getSelected(), (std::vector<KXChartItem>{{0, 29'999, 0}}))
            << "however many";
        EXPECT_EQ(provider.askedOneByOne, atOnce ? 0 : 30'000);
    }
}

} // namespace
