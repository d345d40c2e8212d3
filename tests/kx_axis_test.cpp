#include "kx_axis.h"

#include "kx_axis_delegate.h"
#include "kx_json_object_factory.h"
#include "ux/ux_color.h"
#include "ux/ux_recording_paint_config.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
const UXRect rect(10, 20, 200, 100);

struct Notation {
    const char* name;
    int x, y;
    bool isReversed;
    /** Where the minimum and the maximum are that fill the rectangle. */
    UXPoint min, max;
};
const Notation notations[] = {
    {"left to right", 1, 0, false, {10, 120}, {210, 120}},
    {"right to left", -1, 0, true, {210, 120}, {10, 120}},
    {"bottom to top", 0, 1, true, {10, 120}, {10, 20}},
    {"top to bottom", 0, -1, false, {10, 20}, {10, 120}},
};

void setUp(KXAxis& axis, const Notation& notation, double min, double max)
{
    axis.setRect(rect);
    axis.setVectorNotation(notation.x, notation.y);
    axis.setMinValue(min);
    axis.setMaxValue(max);
}

class Listener : public KXAxisDelegate {
public:
    void axisAxisLengthChanged(KXAxis* axis, double totalLength) override
    {
        lengths.push_back(totalLength);
        if (whenLengthChanges)
            whenLengthChanges(axis);
    }
    void axisVisibleValuesChanged(KXAxis* axis) override
    {
        ++visibleCalls;
        if (whenVisibleChanges)
            whenVisibleChanges(axis);
    }

    std::vector<double> lengths;
    int visibleCalls = 0;
    std::function<void(KXAxis*)> whenLengthChanges, whenVisibleChanges;
};

} // namespace

TEST(KXAxis, ValuesFillTheRectangleInEachDirection)
{
    for (const Notation& notation : notations) {
        SCOPED_TRACE(notation.name);
        KXAxis axis;
        setUp(axis, notation, -5, 5);
        EXPECT_EQ(axis.isReversed(), notation.isReversed);
        EXPECT_EQ(axis.obtainStartEndPoints(), std::pair(notation.min, notation.max));
        EXPECT_EQ(axis.obtainValuePositionInAxis(-5), notation.min);
        EXPECT_EQ(axis.obtainValuePositionInAxis(5), notation.max);
        EXPECT_EQ(axis.obtainValuePositionInAxis(0),
                  UXPoint((notation.min.x + notation.max.x) / 2, (notation.min.y + notation.max.y) / 2));
        EXPECT_EQ(axis.obtainCurrentFirstLastValues(), std::pair(-5.0, 5.0));
        EXPECT_TRUE(axis.isValidAxis());
        EXPECT_FALSE(axis.isScrollable());
    }
    KXAxis axis;
    EXPECT_TRUE(axis.isReversed());
    axis.setVectorNotationRight();
    EXPECT_FALSE(axis.isReversed());
    EXPECT_EQ(axis.getVectorNotationX(), 1);
}

TEST(KXAxis, Scrolling)
{
    const Notation& right = notations[0];
    const Notation& up = notations[2];
    const std::tuple<const char*, Notation, std::int64_t, double, double, UXPoint, UXPoint> cases[] = {
        {"horizontal, at the minimum", right, 0, 0, 5, {10, 120}, {410, 120}},
        {"horizontal, at the maximum", right, 200, 5, 10, {-190, 120}, {210, 120}},
        {"vertical, at the maximum", up, 0, 7.5, 10, {10, 420}, {10, 20}},
        {"vertical, at the minimum", up, 300, 0, 2.5, {10, 120}, {10, -280}},
    };
    for (const auto& [name, notation, offset, first, last, ofMin, ofMax] : cases) {
        SCOPED_TRACE(name);
        KXAxis axis;
        setUp(axis, notation, 0, 10);
        axis.setMinValueSpacing(40);
        axis.setOffset(offset);
        EXPECT_EQ(axis.obtainCurrentFirstLastValues(), std::pair(first, last));
        EXPECT_EQ(axis.obtainValuePositionInAxis(0), ofMin);
        EXPECT_EQ(axis.obtainValuePositionInAxis(10), ofMax);
        axis.setOffset(77);
        EXPECT_EQ(axis.obtainValuePositionInAxis(0, offset), ofMin) << "a given offset counts alone";
    }
}

TEST(KXAxis, ExtraLengthStandsBeyondTheMaximum)
{
    const std::tuple<Notation, bool, UXPoint, UXPoint> cases[] = {
        {notations[0], true, {10, 120}, {170, 120}},  {notations[1], true, {210, 120}, {50, 120}},
        {notations[1], false, {170, 120}, {10, 120}}, {notations[2], true, {10, 120}, {10, 60}},
        {notations[2], false, {10, 80}, {10, 20}},    {notations[3], true, {10, 20}, {10, 80}},
    };
    for (const auto& [notation, toTheEnd, ofMin, ofMax] : cases) {
        SCOPED_TRACE(notation.name);
        KXAxis axis;
        setUp(axis, notation, 0, 10);
        axis.setApplyExtralengthToTheEnd(toTheEnd);
        axis.setExtraLength("labels", 25);
        axis.setExtraLength("marks", 15);
        EXPECT_EQ(axis.obtainTotalExtraLength(), 40);
        EXPECT_EQ(axis.obtainValuePositionInAxis(0), ofMin);
        EXPECT_EQ(axis.obtainValuePositionInAxis(10), ofMax);
    }
    KXAxis axis;
    axis.setExtraLength("a", -3);
    EXPECT_EQ(axis.getExtraLength("a"), 0);
    axis.setExtraLength("a", 3);
    EXPECT_EQ(axis.getExtraLength("a"), 3);
    EXPECT_EQ(axis.getExtraLength("b"), 0);
    axis.setExtraLength("b", 2);
    axis.setExtraLength("a", 0);
    EXPECT_EQ(axis.serialize().find("\"a\""), std::string::npos) << "what is none is not saved";
    axis.clearExtraLengths();
    EXPECT_EQ(axis.obtainTotalExtraLength(), 0);
}

TEST(KXAxis, TheVisibleValuesStandAtTheEndsOfTheAxis)
{
    std::mt19937 random(7);
    const auto pick = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    for (int round = 0; round < 500; ++round) {
        const Notation& notation = notations[round % 4];
        SCOPED_TRACE(notation.name);
        KXAxis axis;
        const double min = pick(-1000, 1000);
        setUp(axis, notation, min, min + pick(0.01, 1000));
        axis.setMinValueSpacing(pick(-1, 20));
        axis.setExtraLength("labels", pick(0, 90));
        axis.setShiftHalfValueSpacing(random() % 2);
        axis.setOffset(static_cast<std::int64_t>(pick(-300, 300)));
        const auto [first, last] = axis.obtainCurrentFirstLastValues();
        const UXDoublePoint start = axis.obtainDoubleValuePositionInAxis(first);
        const UXDoublePoint end = axis.obtainDoubleValuePositionInAxis(last);
        ASSERT_NEAR(start.x, notation.min.x, 1e-6);
        ASSERT_NEAR(start.y, notation.min.y, 1e-6);
        ASSERT_NEAR(end.x, notation.max.x, 1e-6);
        ASSERT_NEAR(end.y, notation.max.y, 1e-6);
    }
}

TEST(KXAxis, HostileNumbersGiveFiniteAnswers)
{
    const double odd[] = {0, -0.0, 1,      -1,     NAN,    inf,    -inf, 1e308,
                          7, 1e-9, 5e-324, -1e308, 1e-300, 123.25, 1e16, 1.7976931348623157e308};
    const int edges[] = {0, 1, -1, 300, (std::numeric_limits<int>::min)(), (std::numeric_limits<int>::max)()};
    std::mt19937 random(11);
    const auto pick = [&] { return odd[random() % std::size(odd)]; };
    const auto edge = [&] { return edges[random() % std::size(edges)]; };
    for (int round = 0; round < 20000; ++round) {
        KXAxis axis;
        axis.setRect(UXRect(edge(), edge(), edge(), edge()));
        axis.setVectorNotation(edge(), edge());
        axis.setMinValue(pick());
        axis.setMaxValue(pick());
        axis.setValueSpacing(pick());
        axis.setMinValueSpacing(pick());
        axis.setValueScale(pick());
        axis.setOffset(static_cast<std::int64_t>(random()) << (random() % 40));
        axis.setShiftHalfValueSpacing(random() % 2);
        axis.setExtraLength("a", pick());
        axis.setExtraLength("b", pick());
        const auto [first, last] = axis.obtainCurrentFirstLastValues();
        const UXDoublePoint point = axis.obtainDoubleValuePositionInAxis(pick());
        for (const double answer :
             {first, last, point.x, point.y, axis.obtainTotalLength(), axis.obtainAxisLength(),
              axis.obtainCurrentValueSpacing(), axis.obtainActualOffset(5), axis.obtainTotalExtraLength()})
            ASSERT_TRUE(std::isfinite(answer)) << round;
        axis.obtainValuePositionInAxis(pick());
        axis.isScrollable();
    }
}

TEST(KXAxis, ADelegateMayChangeTheAxisOrDestroyIt)
{
    Listener listener;
    KXAxis axis;
    axis.setDelegate(&listener);
    setUp(axis, notations[0], 0, 10);
    listener.whenLengthChanges = [](KXAxis* changed) { changed->setExtraLength("labels", 40); };
    EXPECT_EQ(axis.obtainValuePositionInAxis(10), UXPoint(210, 120)) << "the query goes on as it began";
    EXPECT_EQ(axis.obtainValuePositionInAxis(10), UXPoint(170, 120)) << "the next one takes the change up";
    axis.obtainAxisLength();
    EXPECT_EQ(listener.lengths.size(), 2u);
    axis.setDelegate(nullptr);

    const std::tuple<std::function<void(KXAxis*)>, bool> cases[] = {
        {[](KXAxis* lost) { lost->update(); }, true},
        {[](KXAxis* lost) { lost->reloadData(); }, true},
        {[](KXAxis* lost) { lost->layout(); }, true},
        {[](KXAxis* lost) { EXPECT_EQ(lost->obtainAxisLength(), 0); }, false},
        {[](KXAxis* lost) { EXPECT_EQ(lost->obtainValuePositionInAxis(1), UXPoint()); }, false},
        {[](KXAxis* lost) { EXPECT_EQ(lost->obtainCurrentFirstLastValues(), std::pair(0.0, 0.0)); }, false},
        {[](KXAxis* lost) { EXPECT_FALSE(lost->isValidAxis()); }, false},
        {[](KXAxis* lost) { EXPECT_FALSE(lost->isScrollable()); }, false},
        {[](KXAxis* lost) { EXPECT_EQ(lost->obtainActualOffset(1), 1); }, false},
    };
    for (const auto& [call, tellsOfVisibleValues] : cases) {
        for (const bool isByLength : {true, false}) {
            if (!isByLength && !tellsOfVisibleValues)
                continue;
            Listener destroyer;
            bool isGone = false;
            (isByLength ? destroyer.whenLengthChanges : destroyer.whenVisibleChanges) = [&](KXAxis* gone) {
                isGone = true;
                delete gone;
            };
            auto* lost = new KXAxis;
            lost->setDelegate(&destroyer);
            setUp(*lost, notations[2], 0, 10);
            call(lost);
            EXPECT_TRUE(isGone);
        }
    }
}
