#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_test_input.h"
#include "ux/ux_color.h"
#include "ux/ux_label.h"
#include "ux/ux_rect_functions.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Rotation = KXAxisTickLabelRotationType;
using Mode = KXAxisTickLabelIntervalMode;
constexpr double inf = std::numeric_limits<double>::infinity();

/** An axis of equally long labels and its view, each letter five units wide and ten high. */
class Labels : public KXAxisTickLabelViewDelegate {
public:
    explicit Labels(UXPosition position = UXPosition::Bottom, int width = 1000)
    {
        const bool isAlongX = position == UXPosition::Bottom || position == UXPosition::Top;
        root.addChild(axis);
        root.addChild(view);
        axis->setVectorNotation(isAlongX ? 1 : 0, isAlongX ? 0 : 1);
        axis->setRect(isAlongX ? UXRect(100, 20, width, 200) : UXRect(100, 20, 200, width));
        view->setRect(position == UXPosition::Bottom ? UXRect(100, 220, width, 80)
                      : position == UXPosition::Top  ? UXRect(100, 20, width, 80)
                                                     : UXRect(20, 20, 80, width));
        view->setAxis(axis);
        view->setDelegate(this);
        view->setPosition(position);
        UXTextProperty property;
        property.font.size = 10;
        view->setTextProperty(property);
    }
    ~Labels() override
    {
        if (isAlive.isAlive())
            view->setDelegate(nullptr);
    }

    /** Gives the labels at both ends of the axis all room that they can need. */
    Labels& widenView()
    {
        view->setRect(uxInflateRect(view->getRect(), 400, 400));
        return *this;
    }
    /** Ticks 0, 1, 2 and so on, the given number of units apart. */
    Labels& setTicks(int newCount, double spacing, std::size_t letters)
    {
        count = newCount;
        axis->setMaxValue(count);
        axis->setValueSpacing(spacing);
        text = [letters](double value) {
            std::string made = std::to_string(static_cast<int>(value));
            made.resize(letters, 'x');
            return made;
        };
        view->reloadData();
        return *this;
    }
    Labels& setMode(Mode mode, bool useFixed = true, double interval = 10)
    {
        view->setTickLabelIntervalMode(mode);
        view->setUseFixedTickLabelIntervalForAutoIntervalMode(useFixed);
        view->setTickLabelInterval(interval);
        return *this;
    }

    std::vector<UXLabel*> shown()
    {
        view->layout();
        std::vector<UXLabel*> labels = view->obtainLabels();
        std::erase_if(labels, [](const UXLabel* label) { return !label->getVisible(); });
        return labels;
    }
    /** @return the shown labels' values */
    std::vector<int> values()
    {
        std::vector<int> found;
        for (const UXLabel* label : shown())
            found.push_back(std::atoi(label->getText().c_str()));
        return found;
    }
    /** @return the title of the hint at a point of the view, empty for none */
    std::string hintAt(UXPoint point)
    {
        KXTestInput{*view}.move(view->translatePoint(point, view, &root));
        return isAlive.isAlive() && view->getHintVisible() ? view->getHintInfo().title : "";
    }

    // From KXAxisTickLabelViewDelegate
    int axisTickLabelViewObtainTickLabelCount(KXAxisTickLabelView*) override
    {
        noteCall();
        return count;
    }
    double axisTickLabelViewObtainTick(KXAxisTickLabelView*, int index) override
    {
        noteCall();
        return tick(index);
    }
    void axisTickLabelViewObtainTickLabel(KXAxisTickLabelView*, double value, std::string& label) override
    {
        noteCall();
        ++textCalls;
        label = text(value);
    }
    bool axisTickLabelViewObtainTickLabelVisuals(KXAxisTickLabelView*, double value, UXColor& color,
                                                 bool& marked) override
    {
        noteCall();
        color = UXColor(1, 2, 3);
        marked = true;
        return value == markedValue;
    }
    bool axisTickLabelViewShouldConsiderStartEndLabelLength(KXAxisTickLabelView*, bool& consider) override
    {
        noteCall();
        consider = considersEnd;
        return true;
    }
    void axisTickLabelViewRequestExtraLengthAtTheEnd(KXAxisTickLabelView*, double length) override
    {
        requests.push_back(length);
        if (keepsExtraLength)
            axis->setExtraLength(view->getExtraLengthKey(), length);
        noteCall();
    }
    void noteCall()
    {
        ++calls;
        if (onCall)
            onCall();
    }

    UXObject root;
    KXAxis* axis = new KXAxis;
    KXAxisTickLabelView* view = new KXAxisTickLabelView;
    UXObjectWatcher isAlive{view};
    int count = 0;
    std::function<double(int)> tick = [](int index) { return index; };
    std::function<std::string(double)> text = [](double) { return "label"; };
    double markedValue = -1;
    bool considersEnd = false, keepsExtraLength = false;
    int calls = 0, textCalls = 0;
    std::vector<double> requests;
    std::function<void()> onCall;

private:
    UXFixedMeasurer m_measurer;
};

} // namespace

TEST(KXAxisTickLabelView, Rotation)
{
    using enum Rotation;
    struct Case {
        const char* name;
        Rotation type;
        UXPosition position;
        int count;
        double spacing;
        Rotation expected;
        bool autoRotate = true;
        Mode mode = Mode::All;
        double interval = 10;
    };
    const Case cases[] = {
        {"too close", Auto, UXPosition::Bottom, 2, 43, Degrees45},
        {"just apart", Auto, UXPosition::Bottom, 2, 44, Horizontal},
        {"above the axis", Auto, UXPosition::Top, 2, 43, Degrees45},
        {"a single tick", Auto, UXPosition::Bottom, 1, 10, Horizontal},
        {"beside the axis", Auto, UXPosition::Left, 20, 10, Horizontal},
        {"not automatically", Auto, UXPosition::Bottom, 2, 10, Horizontal, false},
        {"every tenth, just apart", Auto, UXPosition::Bottom, 100, 4.4, Horizontal, true, Mode::Custom, 10.9},
        {"every tenth, too close", Auto, UXPosition::Bottom, 100, 4.3, Degrees45, true, Mode::Custom},
        {"fewer ticks than the interval", Auto, UXPosition::Bottom, 9, 4, Horizontal, true, Mode::Custom},
        {"wanted upright", Horizontal, UXPosition::Bottom, 20, 5, Horizontal},
        {"wanted vertical", Vertical, UXPosition::Bottom, 1, 500, Vertical},
        {"wanted sloping", Degrees45, UXPosition::Top, 1, 500, Degrees45},
        {"vertical beside the axis", Vertical, UXPosition::Right, 1, 500, Horizontal},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Labels labels(c.position);
        labels.setTicks(c.count, c.spacing, 8).setMode(c.mode, true, c.interval);
        labels.view->setAutoRotateLabels(c.autoRotate);
        labels.view->setTickLabelRotationType(c.type);
        EXPECT_EQ(labels.view->obtainResolvedRotation(), c.expected);
        const double degrees = c.expected == Vertical ? 270 : c.expected == Degrees45 ? -45 : 0;
        for (const UXLabel* label : labels.shown())
            EXPECT_EQ(label->getRotation(), degrees);
    }
}

TEST(KXAxisTickLabelView, ShownLabels)
{
    struct Case {
        const char* name;
        Mode mode;
        Rotation rotation;
        UXPosition position;
        std::size_t letters;
        double spacing, expectedInterval;
        std::vector<int> expected; // of ten
        double interval = 10;
        bool useFixed = true;
    };
    using enum Rotation;
    using enum UXPosition;
    const std::vector<int> all{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const std::vector<int> allFromTheTop{9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    const Case cases[] = {
        {"all, though they overlap", Mode::All, Horizontal, Bottom, 8, 9, 1, all},
        {"every third", Mode::Custom, Horizontal, Bottom, 8, 9, 3.7, {0, 3, 6, 9}, 3.7},
        {"no interval of ticks", Mode::Custom, Horizontal, Bottom, 8, 9, -2, all, -2},
        {"80 units on 30", Mode::Auto, Horizontal, Bottom, 16, 30, 3, {0, 3, 6, 9}},
        {"60 units on 32", Mode::Auto, Horizontal, Bottom, 12, 32, 2, {0, 2, 4, 6, 8}},
        {"60 units on 30 would touch", Mode::Auto, Horizontal, Bottom, 12, 30, 2, {0, 3, 6, 9}},
        {"half the length, and 100", Mode::Auto, Horizontal, Bottom, 60, 50, 5, {0, 5}},
        {"vertical, a line apart", Mode::Auto, Vertical, Bottom, 8, 9, 1, all},
        {"vertical, closer", Mode::Auto, Vertical, Bottom, 8, 8, 2, {0, 2, 4, 6, 8}},
        {"sloping", Mode::Auto, Degrees45, Bottom, 8, 13, 1, all},
        {"sloping, closer where rounded", Mode::Auto, Degrees45, Bottom, 8, 12.9, 1, {0, 2, 4, 6, 8}},
        {"beside the axis", Mode::Auto, Auto, Left, 8, 10, 1, allFromTheTop},
        {"beside, closer", Mode::Auto, Auto, Left, 8, 4, 3, {9, 6, 3, 0}},
        {"each, 1.9 apart", Mode::Auto, Horizontal, Bottom, 4, 21.9, -1, {0, 2, 4, 6, 8}, 10, false},
        {"each, 2.0 apart", Mode::Auto, Horizontal, Bottom, 4, 22, -1, all, 10, false},
        {"each, from the top", Mode::Auto, Auto, Left, 4, 11.9, -1, {9, 7, 5, 3, 1}, 10, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Labels labels(c.position, 600);
        labels.widenView().setTicks(10, c.spacing, c.letters).setMode(c.mode, c.useFixed, c.interval);
        labels.view->setTickLabelRotationType(c.rotation);
        EXPECT_DOUBLE_EQ(labels.view->obtainTickLabelInterval(), c.expectedInterval);
        EXPECT_EQ(labels.values(), c.expected);
        labels.view->setShowTickLabels(false);
        EXPECT_TRUE(labels.shown().empty());
        EXPECT_EQ(labels.view->obtainLabelLength(), 0);
    }

    // A longer label widens the steps up to 100 units, and is then cut at what its neighbours leave.
    for (const auto& [letters, isCut] : {std::pair(16, false), {40, true}}) {
        Labels labels;
        labels.widenView().setTicks(8, 30, 2).setMode(Mode::Auto).text = [count = letters](double value) {
            return std::to_string(static_cast<int>(value)) + std::string(value == 4 ? count : 1, 'x');
        };
        labels.view->setTickLabelRotationType(Horizontal);
        EXPECT_EQ(labels.values(), std::vector<int>({0, 2, 4, 6}));
        EXPECT_EQ(labels.shown()[2]->getText().ends_with("\u2026"), isCut);
    }
}

TEST(KXAxisTickLabelView, OneStepFromEndToEnd)
{
    using enum Rotation;
    for (const Rotation rotation : {Horizontal, Vertical, Degrees45}) {
        for (double spacing = 0.7; spacing < 60; spacing += 0.83) {
            Labels labels(UXPosition::Bottom, 500);
            labels.setTicks(uxSaturateToInt(500 / spacing), -1, 1).setMode(Mode::Auto);
            labels.view->setShowLabelInBound(true);
            labels.view->setTickLabelRotationType(rotation);
            labels.text = [](double value) {
                const int index = static_cast<int>(value);
                const bool isLong = index % 7 == 3; // which no number is: those are never shortened
                return std::to_string(index) + std::string(isLong ? 30 : 2, isLong || index % 3 ? 'x' : '0');
            };
            const std::vector<UXLabel*> shown = labels.shown();
            ASSERT_GT(shown.size(), 0u);
            // Each is as far from the next one as others are; of upright ones alone, all show with a gap.
            const auto endOf = [&](std::size_t i) { return uxMaxX(shown[i]->getRect()); };
            for (std::size_t i = 1; i < shown.size(); ++i) {
                if (rotation == Horizontal) {
                    EXPECT_LE(endOf(i - 1) + 1, shown[i]->getRect().x) << spacing;
                } else if (i > 2 && i + 1 < shown.size()) { // those at the ends may have moved inside
                    EXPECT_NEAR(endOf(i) - endOf(i - 1), endOf(2) - endOf(1), 1) << spacing;
                }
            }
        }
    }
}

TEST(KXAxisTickLabelView, BreaksLabelsInTwoLinesBeforeTheyTurn)
{
    using enum Rotation;
    struct Case {
        const char* name;
        bool breaks;
        double spacing;
        const char* text; // of every tick, 5 units a letter
        int mostLength;
        Rotation expected;
        const char* shown;
        int band;
    };
    const Case cases[] = {
        {"short enough", true, 64, "two words xx", -1, Horizontal, "two words xx", 10},
        {"in the middle", true, 63, "two words xx", -1, Horizontal, "two\nwords xx", 20},
        {"the narrowest lines", true, 63, "a b c dddd e f", -1, Horizontal, "a b c\ndddd e f", 20},
        {"not asked for", false, 63, "two words xx", -1, Degrees45, "two words xx", 50},
        {"too long in two lines", true, 43, "two words xx", -1, Degrees45, "two words xx", 50},
        {"no room for two lines", true, 63, "two words xx", 19, Degrees45, nullptr, 19},
        {"one word", true, 63, "twowordsxxxx", -1, Degrees45, "twowordsxxxx", 50},
        {"a number", true, 63, "1 000 000 000", -1, Degrees45, "1 000 000 000", 54},
        {"between wide characters", true, 63, "\u9500\u552e\u989d\u4e07", -1, Horizontal,
         "\u9500\u552e\n\u989d\u4e07", 20},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Labels labels;
        labels.widenView().setTicks(6, c.spacing, 1).setMode(Mode::Auto);
        labels.view->setPrefersAllLabels(c.breaks);
        labels.view->setMaxLabelLength(c.mostLength);
        labels.text = [&](double) { return c.text; };
        labels.view->reloadData();
        EXPECT_EQ(labels.view->obtainResolvedRotation(), c.expected);
        EXPECT_EQ(labels.view->obtainLabelLength(), c.band);
        const std::vector<UXLabel*> shown = labels.shown();
        if (!c.shown)
            continue;
        ASSERT_EQ(shown.size(), 6u);
        EXPECT_EQ(shown[2]->getText(), c.shown);
        const UXRect rect = shown[2]->getRect();
        EXPECT_EQ(labels.hintAt({rect.x + rect.width / 2, rect.y + rect.height / 2}), "") << "all is shown";
    }

    // Scrolled to a label that is too long even so, all turn, and stay so on the way back.
    Labels labels(UXPosition::Bottom, 300);
    labels.setTicks(40, 63, 1).setMode(Mode::Auto).text = [](double value) {
        return value == 20 ? "words that are too long even in two lines" : "two words xx";
    };
    labels.view->setPrefersAllLabels(true);
    for (const auto& [offset, expected] :
         {std::pair(0, Horizontal), {600, Horizontal}, {1200, Degrees45}, {0, Degrees45}}) {
        labels.axis->setOffset(offset);
        EXPECT_EQ(labels.view->obtainResolvedRotation(), expected) << offset;
    }
    labels.view->reloadData();
    EXPECT_EQ(labels.view->obtainResolvedRotation(), Horizontal);
}

TEST(KXAxisTickLabelView, BandLength)
{
    using enum Rotation;
    // expected: 40 x 10
    const std::tuple<const char*, UXPosition, Rotation, int, int, int> cases[] = {
        {"upright", UXPosition::Bottom, Horizontal, -1, -1, 10},
        {"vertical", UXPosition::Top, Vertical, -1, -1, 40},
        {"sloping", UXPosition::Bottom, Degrees45, -1, -1, 36},
        {"beside", UXPosition::Left, Auto, 0, 0, 40},
        {"at most", UXPosition::Left, Auto, -1, 30, 30},
        {"custom, whatever is at most", UXPosition::Left, Auto, 70, 30, 70},
    };
    for (const auto& [name, position, rotation, custom, most, expected] : cases) {
        SCOPED_TRACE(name);
        Labels labels(position);
        labels.setTicks(5, 100, 8);
        labels.view->setTickLabelRotationType(rotation);
        labels.view->setCustomLabelLength(custom);
        labels.view->setMaxLabelLength(most);
        EXPECT_EQ(labels.view->obtainLabelLength(), expected);
    }
    // Scrolled to shorter labels, the band stays; shorter data make it shorter.
    Labels labels(UXPosition::Left, 100);
    labels.setTicks(100, 20, 8).text = [](double value) { return std::string(value > 90 ? 9 : 3, 'x'); };
    EXPECT_EQ(labels.view->obtainLabelLength(), 45);
    labels.axis->setOffset(1000);
    EXPECT_EQ(labels.view->obtainLabelLength(), 45);
    labels.view->reloadData();
    EXPECT_EQ(labels.view->obtainLabelLength(), 15);
}

TEST(KXAxisTickLabelView, LabelsStandAtTheirTicksInsideTheView)
{
    struct Case {
        const char* name;
        UXPosition position;
        Rotation rotation;
        bool inBound;
        std::size_t letters;
        double value; // on an axis of 200 units from 0 to 10
        UXRect expected;
        std::string text;
    };
    using enum Rotation;
    const Case cases[] = {
        {"below", UXPosition::Bottom, Horizontal, false, 4, 5, {90, 0, 20, 10}, "5xxx"},
        {"above", UXPosition::Top, Horizontal, false, 4, 5, {90, 70, 20, 10}, "5xxx"},
        {"to the left", UXPosition::Left, Auto, false, 4, 5, {60, 95, 20, 10}, "5xxx"},
        {"vertical below", UXPosition::Bottom, Vertical, false, 4, 5, {95, 0, 10, 20}, "5xxx"},
        {"vertical above", UXPosition::Top, Vertical, false, 4, 5, {95, 60, 10, 20}, "5xxx"},
        {"sloping below", UXPosition::Bottom, Degrees45, false, 4, 5, {82, 0, 22, 22}, "5xxx"},
        {"sloping above", UXPosition::Top, Degrees45, false, 4, 5, {96, 58, 22, 22}, "5xxx"},
        {"moved inside", UXPosition::Bottom, Horizontal, true, 8, 0, {0, 0, 40, 10}, "0xxxxxxx"},
        {"at the end", UXPosition::Bottom, Horizontal, true, 8, 10, {160, 0, 40, 10}, "10xxxxxx"},
        {"cut at the start", UXPosition::Bottom, Horizontal, false, 8, 0, {0, 0, 20, 10}, "0\u2026"},
        {"cut at the end", UXPosition::Bottom, Horizontal, false, 8, 10, {180, 0, 20, 10}, "1\u2026"},
        {"longer than the view", UXPosition::Left, Auto, true, 20, 5, {0, 95, 80, 10}, "5xxxxxxxxxxxx\u2026"},
        {"sloping, cut at the start", UXPosition::Bottom, Degrees45, false, 9, 1, {2, 0, 22, 22}, "1\u2026"},
        {"half a line above the top", UXPosition::Left, Auto, false, 4, 10, {60, 0, 20, 10}, "10xx"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Labels labels(c.position, 200);
        labels.setTicks(1, -1, c.letters);
        labels.axis->setMaxValue(10);
        labels.tick = [&](int) { return c.value; };
        labels.view->reloadData();
        labels.view->setTickLabelRotationType(c.rotation);
        labels.view->setShowLabelInBound(c.inBound);
        ASSERT_EQ(labels.shown().size(), 1u);
        EXPECT_EQ(labels.shown()[0]->getText(), c.text);
        const UXRect rect = labels.shown()[0]->getRect();
        EXPECT_EQ(rect, c.expected);
        const bool isCut = c.text.ends_with("\u2026");
        const UXPoint middle(rect.x + rect.width / 2, rect.y + rect.height / 2);
        EXPECT_EQ(labels.hintAt(middle), isCut ? labels.text(c.value) : "");
    }
}

TEST(KXAxisTickLabelView, LabelsKeepOffTheScrollBar)
{
    const std::tuple<const char*, UXRect, UXRect, bool> cases[] = {
        {"none", {}, {0, 0, 1000, 80}, false},
        {"below the labels", {100, 288, 1000, 12}, {0, 0, 1000, 68}, true},
        {"between axis and labels", {100, 214, 1000, 12}, {0, 6, 1000, 74}, true},
        {"to the right", {1090, 220, 12, 80}, {0, 0, 990, 80}, true},
        {"beyond the view", {100, 300, 1000, 12}, {0, 0, 1000, 80}, false},
    };
    for (const auto& [name, bar, expected, isNextTo] : cases) {
        SCOPED_TRACE(name);
        Labels labels;
        labels.setTicks(5, 200, 8);
        labels.view->setTickLabelRotationType(Rotation::Vertical);
        labels.view->setScrollBarRect(bar);
        EXPECT_EQ(labels.view->isNextToScrollBar(), isNextTo);
        EXPECT_TRUE(labels.view->obtainContentRectWithoutScrollBar() == expected);
        for (const UXLabel* label : labels.shown())
            EXPECT_TRUE(uxContainsRect(expected, label->getRect()));
    }
}

TEST(KXAxisTickLabelView, TheLastLabelGetsItsRoomAtTheEnd)
{
    const std::tuple<const char*, UXPosition, std::size_t, bool, bool, double> cases[] = {
        {"half of an upright label", UXPosition::Bottom, 8, true, false, 20},
        {"half a line", UXPosition::Left, 8, true, false, 5},
        {"the chart has room", UXPosition::Bottom, 8, false, false, 0},
        {"it moves inside", UXPosition::Bottom, 8, true, true, 0},
        {"no more than a quarter", UXPosition::Bottom, 100, true, false, 100},
    };
    for (const auto& [name, position, letters, considers, inBound, expected] : cases) {
        SCOPED_TRACE(name);
        Labels labels(position, 400);
        labels.considersEnd = considers;
        labels.keepsExtraLength = true;
        labels.setTicks(3, -1, letters);
        labels.axis->setMaxValue(2);
        labels.view->setAutoRotateLabels(false);
        labels.view->setShowLabelInBound(inBound);
        labels.view->layout();
        EXPECT_EQ(labels.requests.back(), expected);
        EXPECT_EQ(labels.axis->getExtraLength(labels.view->getExtraLengthKey()), expected);
        EXPECT_LE(labels.requests.size(), 2u) << "settles at once";
    }
    // Upright labels collide only beside the room that the last one takes; turned ones need little of it.
    Labels labels(UXPosition::Bottom, 220);
    labels.considersEnd = labels.keepsExtraLength = true;
    labels.setTicks(5, -1, 10);
    labels.axis->setMaxValue(4);
    EXPECT_EQ(labels.view->obtainResolvedRotation(), Rotation::Degrees45);
    EXPECT_EQ(labels.requests.back(), 4);
    EXPECT_EQ(labels.view->obtainStartOverhang(), 39) << "60 times the root of a half, less the corner's 4";
    const std::size_t requested = labels.requests.size();
    labels.view->layout();
    EXPECT_EQ(labels.requests.size(), requested) << "and stay turned";
}

TEST(KXAxisTickLabelView, WorkIsBoundedByWhatIsVisible)
{
    const std::tuple<const char*, double, Mode, bool, double, int, int, int> cases[] = {
        {"scrolled, all", 50, Mode::All, true, 10, 100, 22, 21},
        {"scrolled, automatic", 50, Mode::Auto, true, 10, 100, 22, 21},
        {"scrolled, each by itself", 50, Mode::Auto, false, 10, 100, 22, 21},
        {"dense, all", 0.001, Mode::All, true, 10, 3100, 1010, 1001},
        {"dense, automatic", 0.001, Mode::Auto, true, 10, 1300, 110, 101},
        {"dense, far apart", 0.001, Mode::Custom, true, 1e5, 1100, 25, 11},
    };
    for (const auto& [name, spacing, mode, useFixed, interval, mostCalls, mostTexts, mostLabels] : cases) {
        SCOPED_TRACE(name);
        Labels labels;
        labels.setTicks(1000000, spacing, 8).setMode(mode, useFixed, interval);
        labels.view->setTickLabelRotationType(Rotation::Horizontal);
        labels.calls = 0;
        EXPECT_GT(labels.shown().size(), 9u);
        EXPECT_LE(labels.calls, mostCalls);
        EXPECT_LE(labels.textCalls, mostTexts);
        EXPECT_LE(labels.view->obtainLabels().size(), static_cast<std::size_t>(mostLabels));
    }

    // A step of the scroll bar asks for what has come into view alone, wherever it leads.
    Labels labels;
    labels.setTicks(1000000, 50, 8);
    labels.view->setTickLabelRotationType(Rotation::Vertical);
    labels.view->layout();
    for (const std::int64_t offset : {100, 40000000, 40000050, 49999000}) {
        labels.calls = labels.textCalls = 0;
        labels.axis->setOffset(offset);
        labels.view->update(false);
        EXPECT_EQ(labels.values().front(), offset / 50);
        EXPECT_LE(labels.calls, 75) << offset;
        if (offset % 1000 != 0) {
            EXPECT_LE(labels.textCalls, 3) << "two came into view";
        }
    }
    // Ticks at places that no interval tells are found as well.
    labels.tick = [](int index) { return std::sqrt(index); };
    labels.axis->setOffset(25000);
    labels.calls = 0;
    labels.view->reloadData();
    labels.view->setTickInterval(0.001);
    const std::vector<double> visible = labels.view->obtainVisibleTicks();
    EXPECT_NEAR(visible.front(), 500, 0.1);
    EXPECT_LE(labels.calls, 1200);
}

TEST(KXAxisTickLabelView, LabelsThatAreLeftOutAreToldByAHint)
{
    Labels labels;
    labels.setTicks(10, 100, 30).setMode(Mode::Auto);
    labels.view->setTickLabelRotationType(Rotation::Horizontal);
    EXPECT_EQ(labels.values(), (std::vector<int>{0, 2, 4, 6, 8}));
    EXPECT_EQ(labels.hintAt({100, 40}), labels.text(1));
    EXPECT_EQ(labels.hintAt({140, 40}), labels.text(1));
    EXPECT_EQ(labels.hintAt({200, 5}), "") << "it can be read";
    EXPECT_EQ(labels.hintAt({210, 40}), "");
    labels.view->setTickLabelRotationType(Rotation::Degrees45);
    labels.setTicks(100, 10, 8);
    EXPECT_EQ(labels.values()[1], 4);
    EXPECT_EQ(labels.hintAt({284, 10}), labels.text(29)) << "where the sloping label would be";
    labels.view->mouseLeave(UXEvent(UXEventType::MouseLeave));
    EXPECT_FALSE(labels.view->getHintVisible());
}

TEST(KXAxisTickLabelView, AMarkedLabelDiffersAndANumberIsLeftOutRatherThanCut)
{
    Labels labels;
    labels.markedValue = 2;
    labels.widenView().setTicks(4, 100, 3);
    labels.view->setLabelColor(UXColor(7, 8, 9));
    const std::vector<UXLabel*> shown = labels.shown();
    ASSERT_EQ(shown.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        const UXTextProperty& property = shown[i]->getTextProperty();
        EXPECT_EQ(property.textColor, i == 2 ? UXColor(1, 2, 3) : UXColor(7, 8, 9));
        EXPECT_EQ(property.font.bold, i == 2);
    }

    Labels numbers(UXPosition::Left);
    numbers.setTicks(2, 300, 1).text = [](double value) { return value < 1 ? "0" : "-1,234,567.8M"; };
    numbers.view->setMaxLabelLength(64);
    EXPECT_EQ(numbers.view->obtainLabelLength(), 5);
    EXPECT_EQ(numbers.values(), std::vector<int>{0});
    EXPECT_EQ(numbers.hintAt({40, 300}), "-1,234,567.8M");
}

TEST(KXAxisTickLabelView, ADelegateMayDestroyAnything)
{
    const std::function<void(Labels&)> destroyers[] = {
        [](Labels& labels) { delete labels.view; },
        [](Labels& labels) { delete labels.axis; },
        [](Labels& labels) { labels.view->setDelegate(nullptr); },
        [](Labels& labels) { labels.view->layout(); },
    };
    const std::function<void(Labels&)> uses[] = {
        [](Labels& labels) { labels.view->layout(); },
        [](Labels& labels) { labels.view->reloadData(); },
        [](Labels& labels) { labels.view->update(true); },
        [](Labels& labels) { labels.view->obtainLabelLength(); },
        [](Labels& labels) { labels.view->obtainTickLabelRectForIntersection(3); },
        [](Labels& labels) { labels.view->obtainTickLabelInfo(3, true); },
        [](Labels& labels) { labels.hintAt(UXPoint(200, 60)); },
    };
    for (const auto& destroy : destroyers) {
        for (const auto& use : uses) {
            // At the first call, the second, and so on to the one that never comes.
            bool isOver = false;
            for (int fatal = 1; !isOver; ++fatal) {
                Labels labels;
                labels.setTicks(20, 100, 30).setMode(Mode::Auto, false);
                labels.considersEnd = true;
                if (&use == &uses[6])
                    labels.view->layout();
                labels.calls = 0;
                labels.onCall = [&] {
                    if (labels.calls == fatal)
                        destroy(labels);
                };
                // Where the view goes, the use ends; its own pointer says so.
                use(labels);
                isOver = labels.calls < fatal;
                ASSERT_LT(fatal, 500);
                labels.onCall = nullptr;
                if (labels.isAlive.isAlive())
                    labels.view->layout();
            }
        }
    }
}

TEST(KXAxisTickLabelView, HostileInputEndsInBoundedTimeInsideTheView)
{
    const double odd[] = {0, 1, -1, NAN, inf, -inf, 1e308, -1e308, 1e-300, 7, 50, 0.001, 1e9};
    const int edges[] = {0, 1, -1, 300, 50, INT_MIN, INT_MAX};
    std::mt19937 random(5);
    const auto pick = [&] { return odd[random() % std::size(odd)]; };
    const auto edge = [&] { return edges[random() % std::size(edges)]; };
    for (int round = 0; round < 600; ++round) {
        Labels labels(static_cast<UXPosition>(random() % 7), 300);
        labels.considersEnd = labels.keepsExtraLength = random() % 2;
        labels.count = edge();
        labels.tick = [interval = pick()](int index) { return index * interval; };
        labels.text = [letters = random() % 40](double) { return std::string(letters, 'x'); };
        labels.axis->setMinValue(random() % 3 ? 0 : pick());
        labels.axis->setMaxValue(pick());
        labels.axis->setValueSpacing(pick());
        labels.axis->setOffset(edge());
        labels.axis->setVectorNotation(edge(), edge());
        for (UXObject* object : {static_cast<UXObject*>(labels.axis), static_cast<UXObject*>(labels.view)})
            if (random() % 4 == 0)
                object->setRect({edge(), edge(), edge(), edge()});
        labels.setMode(static_cast<Mode>(random() % 3), random() % 2, pick());
        labels.view->setTickInterval(pick());
        labels.view->setTickLabelRotationType(static_cast<Rotation>(random() % 4));
        labels.view->setCustomLabelLength(edge());
        labels.view->setMaxLabelLength(edge());
        labels.view->setShowLabelInBound(random() % 2);
        labels.view->update(true);
        const UXRect area = labels.view->obtainContentRectWithoutScrollBar();
        for (const UXLabel* label : labels.shown())
            ASSERT_TRUE(uxContainsRect(area, label->getRect())) << round;
        ASSERT_GE(labels.view->obtainLabelLength(), 0) << round;
        labels.hintAt({edge() % 1000, edge() % 1000});
    }
}
