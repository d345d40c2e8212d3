#include "kx_member_panel_chart.h"

#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_chart_selection_provider.h"
#include "kx_legend.h"
#include "kx_load_chart.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_test_input.h"
#include "ux/ux_color_contrast.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_saturate.h"
#include "ux_fixed_measurer.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <optional>
#include <set>
#include <tuple>

namespace {

/** Slices of a whole, clockwise from the top, with their names inside: all that such a panel has to say. */
class SliceChart : public KXMemberPanelChart {
public:
    std::string customSerializeTypeID() override { return "SliceChart"; }

    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override
    {
        const double x = point.x - m_center.x, y = point.y - m_center.y;
        const double turned = std::atan2(x, -y) * 180 / std::numbers::pi;
        const double degrees = turned < 0 ? turned + 360 : turned;
        for (const Slice& slice : m_slices)
            if (std::hypot(x, y) <= m_radius && degrees >= slice.from && degrees < slice.to)
                return slice.item;
        return std::nullopt;
    }
    UXRect obtainItemRect(const KXChartItem& item) const override
    {
        for (const Slice& slice : m_slices)
            if (slice.item == item)
                return {obtainMiddle(item).x - 10, obtainMiddle(item).y - 10, 20, 20};
        return {};
    }
    UXPoint obtainMiddle(const KXChartItem& item) const
    {
        for (const Slice& slice : m_slices)
            if (slice.item == item) {
                const double turn = (slice.from + slice.to) / 2 * std::numbers::pi / 180;
                return {uxSaturateToInt(m_center.x + m_radius * 0.6 * std::sin(turn)),
                        uxSaturateToInt(m_center.y - m_radius * 0.6 * std::cos(turn))};
            }
        return {};
    }

protected:
    void _customLayout(UXRect area) override
    {
        const UXObjectWatcher self(this);
        m_slices.clear();
        m_center = {area.x + area.width / 2.0, area.y + area.height / 2.0};
        m_radius = std::min(area.width, area.height) / 2.0;
        double sum = 0, from = 0;
        for (const KXChartItem& item : _obtainShownItems())
            sum += std::max(obtainItemValue(item.group), 0.0);
        for (const KXChartItem& item : _obtainShownItems()) {
            const double sweep = 360 * std::max(obtainItemValue(item.group), 0.0) / sum;
            const std::string name = obtainItemName(item.group);
            if (!self.isAlive())
                return;
            m_slices.push_back({item, from, from + sweep, name});
            from += sweep;
        }
    }
    void _paintUnderChildren(UXPainter& painter) override
    {
        for (const Slice& slice : m_slices) {
            const UXColor own = obtainItemColor(slice.item.group);
            painter.setColor(getItems()->obtainDrawnColor(slice.item, own));
            painter.setStartPoint(m_center.x, m_center.y);
            painter.joinCircleArcPath(m_center.x, m_center.y, m_radius, slice.from - 90, slice.to - 90);
            painter.closePath();
            painter.fill();
            UXTextProperty property;
            property.textColor = uxMakeReadableColor(property.textColor, own);
            painter.drawText(slice.name, UXDoubleRect(obtainItemRect(slice.item)), property);
        }
    }
    std::string _obtainItemKind() const override { return "Slice"; }

private:
    struct Slice {
        KXChartItem item;
        double from, to; // degrees
        std::string name;
    };

    std::vector<Slice> m_slices;
    UXDoublePoint m_center;
    double m_radius = 0;
};

/** Named numbers, of which a user can choose some; it keeps the choice by name. */
class MemberProvider : public KXPanelChartDataProvider, public KXChartSelectionProvider {
public:
    std::vector<std::pair<std::string, double>> members{{"a", 1}, {"b", 2}, {"c", 1}};
    std::set<std::string> chosen;
    bool canSelect = true;
    std::vector<KXChartDataPath> clicked;
    KXChartDataProviderHintData hint;
    std::function<void()> onCall;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return _answer(members.empty()); }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return _answer(dimension == 0 ? members.size() : 0);
    }
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer(members.at(path.at(1)).first);
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return _answer(std::uint64_t{1}); }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer(members.at(path.at(1)).second);
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
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath&) override
    {
        return _answer(hint);
    }
    bool obtainCanSelect(KXChartDataUser*) override { return _answer(canSelect); }
    bool obtainIsSelected(KXChartDataPath* path) override { return _answer(chosen.contains(_nameOf(*path))); }
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
    T _answer(T value) const
    {
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
        chart = std::make_unique<SliceChart>();
        chart->setAlign(UXAlign::None);
        chart->getChartProperty()->setShowTitle(false);
        chart->getChartProperty()->setShowLegend(false);
        diagram.addChild(chart.get());
        kxLoad(*chart, provider, {0, 0, 400, 302});
    }
    UXPoint middleOf(std::uint64_t item) const { return chart->obtainMiddle({0, item, 0}); }
    /** @return whether a slice is drawn in all of the colour, and not in a fainter one */
    bool isDrawnIn(const UXColor& color) const
    {
        const std::string text = "setColor " + std::to_string(color.red) + "," + std::to_string(color.green) +
                                 "," + std::to_string(color.blue) + ",1\n";
        return uxPaintToText(*chart).find(text) != std::string::npos;
    }
    void click(std::uint64_t item, std::optional<UXEventKey> key = {})
    {
        UXEvent event = KXTestInput::at(middleOf(item));
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

    const UXFixedMeasurer measurer;
    MemberProvider provider;
    UXDiagram diagram;
    const KXTestInput input{diagram};
    std::unique_ptr<SliceChart> chart;
};

TEST_F(KXMemberPanelChartTest, APanelOfSlicesAnswersPointerLegendAndLinks)
{
    for (const char* name : {"\"a\"", "\"b\"", "\"c\""})
        EXPECT_NE(uxPaintToText(*chart).find(name), std::string::npos);
    input.move(middleOf(1));
    EXPECT_EQ(chart->getItems()->getHovered(), (KXChartItem{0, 1, 0}));
    EXPECT_EQ(chart->UXHintDelegate::getHintInfo().title + chart->UXHintDelegate::getHintInfo().text, "b2");
    EXPECT_TRUE(isDrawnIn(chart->obtainItemColor(1)));
    EXPECT_FALSE(isDrawnIn(chart->obtainItemColor(0))) << "what is beside it gives way";
    provider.hint = {"told", "by the host"};
    input.move(middleOf(2));
    EXPECT_EQ(chart->UXHintDelegate::getHintInfo().title, "told");
    input.move({3, 3});
    EXPECT_FALSE(chart->getHintVisible());
    click(2);
    ASSERT_EQ(provider.clicked.size(), 1);
    EXPECT_EQ(provider.clicked[0].identifier, "Slice");
    EXPECT_EQ(provider.clicked[0].dimensionIndexPath, (KXIndexPath{0, 2}));
    type(UXKeyCode::Escape);

    chart->legendCellHovered(0, true);
    EXPECT_FALSE(isDrawnIn(chart->obtainItemColor(1)));
    chart->legendCellHovered(0, false);
    EXPECT_TRUE(isDrawnIn(chart->obtainItemColor(1)));
    chart->legendCellClicked(1, {});
    chart->layout();
    EXPECT_FALSE(chart->obtainItemAt(middleOf(1)) == (KXChartItem{0, 1, 0}));
    std::swap(provider.members[0], provider.members[1]);
    kxLoad(*chart);
    EXPECT_FALSE(chart->isItemShown(0)) << "b is known by its name";
    EXPECT_TRUE(chart->isItemShown(1));
    chart->setItemShown(0, true);
    chart->layout();

    const std::tuple<const char*, KXIndexPath, KXIndexPath, bool> paths[] = {
        {"a value", {0, 1}, {0, 1}, true},
        {"a member", {}, {0, 2}, true},
        {"a value of another", {0, 1}, {0, 2}, false},
        {"no such member", {}, {0, 3}, false},
        {"another measure", {1, 1}, {0, 1}, false},
        {"nothing", {}, {}, false},
    };
    for (const auto& [name, value, member, isFound] : paths) {
        SCOPED_TRACE(name);
        KXChartDataPath path;
        path.valueIndexPath = value;
        path.dimensionIndexPath = member;
        EXPECT_EQ(chart->showLinkedHighlight(path, nullptr) == KXHighlightResult::Highlighted, isFound);
        EXPECT_EQ(chart->getItems()->isHighlighting(), isFound);
        chart->hideLinkedHighlight(nullptr);
    }
}

TEST_F(KXMemberPanelChartTest, TheKeyboardWalksItemsAndClicksThem)
{
    using enum UXKeyCode;
    diagram.setFocusedObject(chart.get());
    const std::string usual = uxPaintToText(*chart);
    type(Enter);
    EXPECT_TRUE(provider.clicked.empty()) << "there is no item yet";
    const std::pair<UXKeyCode, std::uint64_t> steps[] = {{Right, 0}, {Right, 1}, {Down, 2}, {Down, 2},
                                                         {Left, 1},  {Home, 0},  {Up, 0},   {End, 2}};
    for (const auto& [key, expected] : steps) {
        type(key);
        EXPECT_EQ(chart->getItems()->getFocused(), (KXChartItem{0, expected, 0}));
        EXPECT_EQ(chart->UXHintDelegate::getHintInfo().title, provider.members[expected].first);
        EXPECT_NE(uxPaintToText(*chart), usual) << "a ring shows where it is";
    }
    type(Enter);
    ASSERT_EQ(provider.clicked.size(), 1);
    EXPECT_EQ(provider.clicked[0].dimensionIndexPath, (KXIndexPath{0, 2}));
    type(Escape); // the click has chosen it
    type(Escape);
    EXPECT_FALSE(chart->getHintVisible());
    EXPECT_EQ(uxPaintToText(*chart), usual);
    click(1);
    type(Escape);
    type(Right);
    EXPECT_EQ(chart->getItems()->getFocused(), (KXChartItem{0, 2, 0})) << "from what was pressed";

    chart->getChartProperty()->updateEnableInteraction(false);
    type(Left);
    EXPECT_FALSE(chart->getItems()->getFocused());
}

TEST_F(KXMemberPanelChartTest, TheHostKeepsWhatIsChosen)
{
    using enum UXEventKey;
    const std::tuple<const char*, std::function<void()>, std::string> steps[] = {
        {"a click", [this] { click(1); }, "b"},
        {"another one", [this] { click(2); }, "c"},
        {"with Ctrl beside it", [this] { click(0, Ctrl); }, "ac"},
        {"with Ctrl once more", [this] { click(2, Ctrl); }, "a"},
        {"with Shift along the order",
         [this] {
             click(0);
             click(2, Shift);
         },
         "abc"},
        {"against it",
         [this] {
             click(1);
             click(0, Shift);
         },
         "ab"},
        {"by keys",
         [this] {
             click(0);
             type(UXKeyCode::Right, Shift);
         },
         "ab"},
        {"Escape", [this] { type(UXKeyCode::Escape); }, ""},
        {"beside all",
         [this] {
             click(1);
             input.click({3, 3});
         },
         ""},
        {"not now",
         [this] {
             provider.canSelect = false;
             click(1);
         },
         ""},
    };
    for (const auto& [name, act, expected] : steps) {
        SCOPED_TRACE(name);
        act();
        EXPECT_EQ(provider.obtainChosen(), expected);
        EXPECT_EQ(chart->getItems()->getSelected().size(), expected.size());
        input.leave();
        for (std::uint64_t i = 0; i < 3; ++i)
            EXPECT_EQ(isDrawnIn(chart->obtainItemColor(i)),
                      expected.empty() || expected.find(provider.members[i].first) != std::string::npos)
                << "what is not chosen is dimmed";
    }
    provider.canSelect = true;
    click(1);
    std::swap(provider.members[1], provider.members[2]);
    kxLoad(*chart);
    EXPECT_EQ(chart->getItems()->getSelected(), (std::vector<KXChartItem>{{0, 2, 0}}));
    provider.members.pop_back();
    kxLoad(*chart);
    EXPECT_TRUE(chart->getItems()->getSelected().empty());
}

TEST_F(KXMemberPanelChartTest, TheProviderMayDestroyTheChartInAnyAnswer)
{
    diagram.setFocusedObject(chart.get());
    const UXPoint middle = middleOf(1);
    const std::function<void()> steps[] = {
        [&] { kxLoad(*chart); },
        [&] { input.move(middle); },
        [&] { input.click(middle); },
        [&] { type(UXKeyCode::Left); },
        [&] { type(UXKeyCode::Enter); },
        [&] { type(UXKeyCode::Escape); },
        [&] { chart->setItemShown(0, false); },
        [&] {
            chart->showLinkedHighlight(*std::unique_ptr<KXChartDataPath>(chart->createItemPath({0, 1, 0})),
                                       nullptr);
        },
    };
    for (std::size_t step = 0; step < std::size(steps); ++step)
        for (int survived = 0, calls = 1; survived < calls; ++survived) {
            SCOPED_TRACE(testing::Message() << "step " << step << ", answer " << survived);
            provider.onCall = nullptr;
            makeChart();
            diagram.setFocusedObject(chart.get());
            if (step > 3)
                input.click(middle);
            calls = 0;
            provider.onCall = [&] {
                if (calls++ == survived)
                    chart.reset();
            };
            steps[step]();
            calls += !chart; // the walk ends once no answer is left to destroy it in
        }
    provider.onCall = nullptr;
}

TEST(KXPanelChartDataUser, KeepsDenseColumnsAndAsksForTextsOnDemand)
{
    /** Answers what it is asked for: the value of a cell is made of its path. */
    class Grid : public KXPanelChartDataProvider {
    public:
        std::vector<std::uint64_t> counts;
        int textsAsked = 0;

        void beginPrepareData(KXChartDataUser*) override {}
        void endPrepareData(KXChartDataUser*) override {}
        bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
        std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
        {
            return dimension < counts.size() ? counts[dimension] : 0;
        }
        std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
        {
            ++textsAsked;
            return "m" + std::to_string(path.at(1));
        }
        std::uint64_t obtainValueCount(KXChartDataUser*) override { return 2; }
        bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path) override
        {
            return path.back() == 1;
        }
        double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
        {
            double value = 0;
            for (const std::uint64_t index : path)
                value = 10 * value + static_cast<double>(index);
            return path.back() == 3 ? INFINITY : value;
        }
    };
    const std::tuple<const char*, std::vector<std::uint64_t>, std::vector<double>> cases[] = {
        {"no dimension", {}, {10}},
        {"one", {3}, {10, NAN, 12}},
        {"two", {2, 4}, {100, NAN, 102, NAN, 110, NAN, 112, NAN}},
        {"a second one without members", {2, 0}, {10, NAN}},
    };
    for (const auto& [name, counts, expected] : cases) {
        SCOPED_TRACE(name);
        Grid grid;
        grid.counts = counts;
        SliceChart chart;
        kxLoad(chart, grid, {0, 0, 300, 200});
        ASSERT_EQ(chart.getMeasureCount(), 2);
        ASSERT_EQ(chart.getValues(1).size(), expected.size());
        for (std::size_t cell = 0; cell < expected.size(); ++cell) {
            EXPECT_TRUE(std::isnan(expected[cell]) ? std::isnan(chart.getValue(1, cell))
                                                   : chart.getValue(1, cell) == expected[cell]);
            EXPECT_EQ(chart.obtainValuePath(1, cell).back(),
                      counts.size() > 1 && counts[1] ? cell % counts[1] : cell);
        }
        EXPECT_TRUE(std::isnan(chart.getValue(2, 0)));
        const int asked = grid.textsAsked;
        EXPECT_EQ(chart.obtainMemberText(0, 1), counts.empty() ? "" : "m1");
        EXPECT_EQ(grid.textsAsked, asked) << "known since the legend showed it";
    }
}

} // namespace
