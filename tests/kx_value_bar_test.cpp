#include "kx_chart_stacked_bar_segment.h"
#include "kx_horizontal_bar.h"
#include "kx_stacked_bar.h"
#include "kx_vertical_bar.h"
#include "ux/ux_recording_paint_config.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace {

std::string paint(UXObject& object)
{
    UXRecordingPaintConfig config;
    object.paint(&config, object.getBoundingRect());
    std::string rects;
    for (const std::string& line : config.getRecording().getLines())
        if (line.find("drawRects") != std::string::npos)
            rects += line;
    return rects;
}

} // namespace

TEST(KXValueBar, FillsFromZeroToTheValueInsideTheRange)
{
    constexpr double null = std::numeric_limits<double>::quiet_NaN();
    const std::tuple<double, double, double, const char*, const char*> cases[] = {
        {3, 0, 4, "drawRects 0,0,75,20", "drawRects 0,5,100,15"},
        {-1, -2, 2, "drawRects 25,0,25,20", "drawRects 0,10,100,5"},
        {9, 1, 5, "drawRects 0,0,100,20", "drawRects 0,0,100,20"},
        {null, 0, 4, "", ""},
        {3, 4, 4, "", ""},
    };
    for (const auto& [value, min, max, across, upright] : cases) {
        KXHorizontalBar horizontal;
        KXVerticalBar vertical;
        for (KXValueBar* bar : {static_cast<KXValueBar*>(&horizontal), static_cast<KXValueBar*>(&vertical)}) {
            bar->setRect({0, 0, 100, 20});
            bar->setValue(value);
            bar->setRange(min, max);
        }
        EXPECT_EQ(paint(horizontal), across) << value;
        EXPECT_EQ(paint(vertical), upright) << value;
    }
}

TEST(KXStackedBar, SegmentsTouchAndFillTheirShare)
{
    KXStackedBar bar;
    bar.setRect({0, 0, 100, 10});
    for (const double value : {1.0, -1.0, std::numeric_limits<double>::infinity(), 1.0})
        bar.addSegment(value, UXColor(1, 2, 3));
    const auto rects = [&] {
        bar.layout();
        std::vector<UXRect> all;
        for (const KXChartStackedBarSegment* segment : bar.getSegments())
            all.push_back(segment->getRect());
        return all;
    };
    EXPECT_EQ(rects(),
              (std::vector<UXRect>{{0, 0, 33, 10}, {33, 0, 34, 10}, {67, 0, 0, 10}, {67, 0, 33, 10}}));
    bar.setTotal(10);
    bar.setOrientation(KXAxisChartOrientation::Vertical);
    EXPECT_EQ(rects().back(), UXRect(0, 7, 100, 1));
    bar.getSegments()[0]->setValue(8);
    EXPECT_EQ(rects().front(), UXRect(0, 2, 100, 8)) << "a segment has its bar laid out";
    bar.clearSegments();
    EXPECT_TRUE(rects().empty());
    EXPECT_EQ(bar.getChildren().size(), 0);
}

TEST(KXStackedBar, KeepsItsSegmentsInADocument)
{
    KXStackedBar bar, read;
    bar.addSegment(2, UXColor(1, 2, 3));
    bar.addSegment(-3, UXColor(4, 5, 6));
    read.addSegment(9, UXColor());
    EXPECT_TRUE(read.deserialize(bar.serialize()));
    EXPECT_EQ(read.serialize(), bar.serialize());
    ASSERT_EQ(read.getSegments().size(), 2u);
    EXPECT_EQ(read.getSegments()[1]->getValue(), -3);
    EXPECT_FALSE(read.deserialize(R"({"m_segments": 1})"));
    EXPECT_EQ(read.getSegments().size(), 2u);
    std::string many = R"({"m_segments": [0)";
    for (int i = 0; i < 20000; ++i)
        many += ",0";
    EXPECT_FALSE(read.deserialize(many + "]}"));
    EXPECT_EQ(read.getSegments().size(), 10000u) << "a hostile list makes no more";
}
