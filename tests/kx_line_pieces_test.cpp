#include "kx_gradient_legend.h"
#include "kx_line_dashes.h"
#include "kx_line_point.h"
#include "kx_line_segment.h"
#include "kx_lines.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_recording_painter.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

std::vector<std::string> paint(const KXLines& lines)
{
    UXRecordingPainter painter(1);
    lines.paint(painter);
    return painter.getLines();
}

} // namespace

TEST(KXLines, AreReadBackAsTheyWereDrawn)
{
    KXLines lines, read;
    KXLineSegment& segment = lines.addSegment();
    segment.setEnds({1, 2}, {30, 4});
    segment.setColor(UXColor(5, 6, 7, 0.5));
    segment.setPen({3, KXChartLineStyle::Dot, KXChartLineCapStyle::Butt, KXChartLineJoinStyle::Round});
    KXLinePoint& point = lines.addPoint();
    point.setCentre({8, 9});
    point.setShape(KXPointShape::Diamond);
    point.setSize(11);
    point.setRingColor(UXColor(1, 1, 1));
    ASSERT_TRUE(read.deserialize(lines.serialize()));
    EXPECT_EQ(read.serialize(), lines.serialize());
    const std::vector<std::string> painted = paint(read);
    EXPECT_EQ(painted, paint(lines));
    EXPECT_EQ(std::ranges::count(painted, "drawPolyline 1,2 30,4"), 1);
    EXPECT_FALSE(read.deserialize("{\"type\": \"KXLines\", \"version\": \"0\", \"m_segments\": 3}"));
}

TEST(KXLineDashes, OnlyWhatIsMergedIsFull)
{
    // From 10 on a column holds several values.
    const auto isMerged = [](const UXDoublePoint& from, const UXDoublePoint& to) {
        return from.x >= 10 && to.x >= 10;
    };
    using Pieces = std::vector<KXLinePiece>;
    struct Case {
        const char* name;
        std::vector<UXDoublePoint> points;
        Pieces expected;
    };
    const Case cases[] = {
        {"nothing", {}, {}},
        {"a point", {{1, 0}}, {}},
        {"sparse", {{1, 0}, {4, 4}, {5, 4}}, {{0, 3, 0, false}}},
        {"into dense and on", {{4, 0}, {10, 0}, {11, 0}, {12, 0}}, {{0, 2, 0, false}, {1, 4, 6, true}}},
        {"each run counts anew",
         {{1, 0}, {4, 0}, {5, gap}, {6, 0}, {8, 0}, {8, gap}, {9, 9}},
         {{0, 2, 0, false}, {3, 5, 0, false}}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(kxDivideDashedLine(c.points, isMerged), c.expected) << c.name;
}

TEST(KXGradientLegend, TakesOneSideAndTellsWhatFits)
{
    const UXFixedMeasurer measurer;
    struct Case {
        const char* name;
        UXRect area;
        UXPosition side;
        int classCount;
        UXRect left;
        int width, texts;
        std::size_t zeros = 0; // behind each value
    };
    const UXRect usual(0, 0, 400, 200);
    const Case cases[] = {
        {"above", usual, UXPosition::Top, 0, {0, 41, 400, 159}, 280, 3},
        {"below", usual, UXPosition::Bottom, 0, {0, 0, 400, 159}, 280, 3},
        {"too low", {0, 0, 400, 99}, UXPosition::Top, 0, {0, 0, 400, 99}, 0, 0},
        {"too narrow", {0, 0, 299, 200}, UXPosition::Left, 0, {0, 0, 299, 200}, 0, 0},
        {"bounds of classes", usual, UXPosition::Top, 4, {0, 41, 400, 159}, 280, 5},
        {"some of too many bounds", {0, 0, 100, 200}, UXPosition::Top, 100, {0, 41, 100, 159}, 100, 5},
        {"a value longer than half of the chart", usual, UXPosition::Left, 0, {215, 0, 185, 200}, 200, 2, 29},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXGradientLegend legend;
        legend.setScale({0, 100, 30, UXColor(), UXColor(), UXColor(), c.classCount}, [&](double value) {
            return std::to_string(static_cast<int>(value)).append(c.zeros, '0');
        });
        EXPECT_EQ(legend.takeRoom(c.area, c.side, UXPosition::Center), c.left);
        EXPECT_EQ(legend.getRect().width, c.width);
        UXRecordingPaintConfig config;
        legend.paint(&config, legend.getBoundingRect());
        const std::vector<std::string> lines = config.getRecording().getLines();
        EXPECT_EQ(std::ranges::count_if(
                      lines, [](const auto& line) { return line.find("drawText") != std::string::npos; }),
                  c.texts);
    }
}
