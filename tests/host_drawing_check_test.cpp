#include "drawing_check.h"

#include "chart_picture.h"
#include "chart_sample.h"
#include "gallery_page.h"
#include "opened_sample.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_recording_painter.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

/** Draws ten letters, 50 wide and 10 high, from a point on. */
void drawLetters(UXPainter& painter, double x, double y, const UXColor& color = {})
{
    UXTextProperty property;
    property.font.size = 10;
    property.textColor = color;
    painter.drawText("ten lettrs", {x, y, 100, 10}, property);
}

} // namespace

TEST(DrawingCheck, FindsWhatAReaderWouldCallAFault)
{
    const UXFixedMeasurer measurer;
    struct Case {
        const char* name;
        double scale;
        std::function<void(UXPainter&)> draw;
        const char* expected; // a part of the only fault; empty for none
    };
    const auto drawTwo = [](double dx, double dy) {
        return [=](UXPainter& painter) {
            drawLetters(painter, 20, 50);
            drawLetters(painter, 20 + dx, 50 + dy);
        };
    };
    const auto drawSloping = [](double dx) {
        return [=](UXPainter& painter) {
            for (const double x : {20.0, 20 + dx}) {
                const UXPainterState state(painter);
                painter.translate(x, 80);
                painter.rotate(-45);
                drawLetters(painter, 0, 0);
            }
        };
    };
    const auto drawClipped = [](double x, const UXDoubleRect& clip = {0, 0, 200, 100}) {
        return [=](UXPainter& painter) {
            painter.addRectanglePath(clip.x, clip.y, clip.width, clip.height);
            painter.clip();
            drawLetters(painter, x, 50);
        };
    };
    const Case cases[] = {
        {"texts side by side", 1, drawTwo(50, 0), ""},
        {"texts into each other", 1, drawTwo(48, 0), "meets"},
        {"lines of text", 1, drawTwo(0, 10), ""},
        {"lines too close", 1, drawTwo(3, 8), "meets"},
        {"sloping texts, whose bounds meet", 1, drawSloping(15), ""},
        {"sloping texts too close", 1, drawSloping(11), "meets"},
        {"a text that reaches out", 1, [](UXPainter& painter) { drawLetters(painter, 160, 50); }, "out of"},
        {"a text without colour", 1,
         [](UXPainter& p) {
             drawLetters(p, 160, 50, {0, 0, 0, 0});
         },
         ""},
        {"a clipped text of which most is left", 1, drawClipped(160), ""},
        {"one of which less is left", 1, drawClipped(180), "mostly out of the area"},
        {"one of which nothing is left", 1, drawClipped(-60), "mostly out of the area"},
        {"one that is cut inside the area", 1, drawClipped(80, {0, 0, 100, 100}), "mostly cut off"},
        {"one that is cut through the middle", 1, drawClipped(75 + 1e-9, {0, 0, 100, 100}), ""},
        {"one that is scrolled out of sight", 1, drawClipped(120, {0, 0, 100, 100}), ""},
        {"one that is scrolled out of the area", 1, drawClipped(-60, {20, 0, 100, 100}), ""},
        {"a text in a layer", 1,
         [](UXPainter& painter) {
             painter.drawComposited([](UXPainter* layer) { drawLetters(*layer, -10, 50); }, nullptr,
                                    {-50, 0, 100, 100}, UXCompositionMode::Over);
         },
         "out of"},
        {"a disc", 1,
         [](UXPainter& painter) {
             painter.addCircleArcPath(50, 50, 50, 17, 377);
             painter.fill();
         },
         ""},
        {"a disc that reaches out", 1,
         [](UXPainter& painter) {
             painter.addCircleArcPath(50, 50, 51, 17, 377);
             painter.fill();
         },
         "out of"},
        {"a line along the edge", 1,
         [](UXPainter& painter) {
             painter.setLineWidth(3);
             painter.addLinePath(0, 0, 200, 0);
             painter.stroke();
         },
         "out of"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXRecordingPainter painter(c.scale);
        c.draw(painter);
        const std::vector<std::string> faults = checkDrawing(painter.getRecording(), {0, 0, 200, 100});
        ASSERT_EQ(faults.size(), *c.expected ? 1u : 0u) << (faults.empty() ? "" : faults[0]);
        if (*c.expected) {
            EXPECT_NE(faults[0].find(c.expected), std::string::npos) << faults[0];
        }
    }
}

TEST(DrawingCheck, ExcusesWhatTheCallerKnows)
{
    const UXFixedMeasurer measurer;
    UXRecordingPainter painter(1);
    for (const double x : {10.0, 30.0, 50.0, 180.0})
        drawLetters(painter, x, 50);
    const auto endsBefore = [](double x) {
        return [x](const DrawnText& a, const DrawnText& b) {
            return a.bounds.x + a.bounds.width < x && b.bounds.x + b.bounds.width < x;
        };
    };
    const auto beginsAt = [](double x) { return [x](const DrawnText& text) { return text.bounds.x == x; }; };
    for (const auto& [excuses, expected] : {std::pair(DrawingExcuses(), 4u),
                                            {{endsBefore(90), {}}, 3u},
                                            {{endsBefore(200), beginsAt(10)}, 1u},
                                            {{endsBefore(200), beginsAt(180)}, 0u}})
        EXPECT_EQ(checkDrawing(painter.getRecording(), {0, 0, 200, 100}, excuses).size(), expected);
}

TEST(DrawingCheck, RectanglesLieOnWholePixels)
{
    struct Case {
        double scale, left;
        std::size_t expected;
    };
    // What the recorder snapped is whole at its own scale; what nobody snapped is not.
    for (const Case& c :
         {Case{1, 10, 0}, {1, 10.5, 1}, {2, 10.5, 0}, {2, 10.25, 1}, {1.5, 10, 0}, {1.5, 11, 1}}) {
        SCOPED_TRACE(c.left);
        UXRecording recording(c.scale);
        const UXDoubleRect rect(c.left, 20, 10, 10);
        recording.add([rect](UXPainter& painter) { painter.drawRects(std::span(&rect, 1)); });
        EXPECT_EQ(checkDrawing(recording, {0, 0, 200, 100}).size(), c.expected);
        UXRecordingPainter snapping(c.scale);
        snapping.drawRects(std::span(&rect, 1));
        EXPECT_TRUE(checkDrawing(snapping.getRecording(), {0, 0, 200, 100}).empty());
    }
}

TEST(DrawingCheck, TheGalleryHasNoFault)
{
    for (const ChartSample& sample : readChartSamples(KX_SOURCE_DIR "/samples")) {
        const OpenedSample opened(sample);
        PictureSetting setting;
        for (const GalleryPicture& picture :
             obtainGalleryPictures(sample).first(sample.isDashboard() ? 2 : 3)) {
            for (const double scale : {1.0, 1.5, 2.0}) {
                setting.size = picture.size;
                setting.scale = scale;
                EXPECT_EQ(checkPicture(opened.obtainPainter(), setting), std::vector<std::string>())
                    << sample.name << picture.suffix << " at " << scale;
            }
        }
    }
}
