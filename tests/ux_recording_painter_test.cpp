#include "ux/ux_recording_painter.h"

#include "ux/ux_object.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_space.h"
#include "ux_hostile_drawing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Lines = std::vector<std::string>;

} // namespace

TEST(UXRecordingPainter, EveryOperationIsOneReadableLine)
{
    const std::string expected =
        "saveState\nsetColor 1,2,3,1.5\nsetLineWidth 1.5\nsetLineCap Round\nsetLineJoin Bevel\n"
        "setLineDash DashDot\nsetLineDash Dash\nsetLineDash 1 20 offset 0\n"
        "setLineDash 20 1.5 offset 1.5\nsetFillRule EvenOdd\nsetAntialias None\n"
        "setCompositionMode Multiply\naddRelativeLinePath 1.5,20\naddCubicCurvePath 1.5,20,20,1.5,1,1\n"
        "setStartPoint 0,0\naddLinePath 1.5,20\naddLinePath 1.5,2,20,4\naddRelativeLinePath 1.5,0\n"
        "addRectanglePath 0,1.5,1.5,20\naddRectanglePath 5,1.5,20,8\naddCircleArcPath 20,0,1.5,20,1.5\n"
        "joinCircleArcPath 0,0,20,1.5,20\nstartNewSubPath\nclosePath\ntranslatePath 1.5,20\n"
        "rotatePath 1.5\nscalePath 1.5,20\nstrokePreserve\nfillPreserve\nstroke\n"
        "drawRects 2,0,20,1 0,0,2,2\ndrawRects 2,0,18,2 2,0,18,2\ndrawPolyline 1.5,0 gap 0,20 20,1.5\n"
        "setStartPoint 1.5,0\naddLinePath 20,1.5\naddLinePath 0,20\nclosePath\nfill\n"
        "drawMarks radius 1.5 1.5,0 nan,0 0,20 20,1.5\n"
        "drawShapes corners 1.5,0 0,20 -1.5,0 at 1.5,0 nan,0 0,20 20,1.5\nbeginLinearGradientPattern "
        "1.5,20,0,1.5 None\n"
        "addGradientPatternColorStop 1,2,3,1.5 at 1.5\nendPattern\nusePattern\nfill\n"
        "drawText 1.5,0,20,20 \"a \\\"b\\\"\\n\\x01\" font \"Default\" 12 align Left option Default "
        "lineMode 2 color 0,0,0,1\n"
        "drawText 0,20,1.5,20 \"a long \xc3\xa9\" font \"Default\" 12 align Right option EllipsisEnd "
        "lineMode 1\ndrawImage 1.5,0,20,1 opacity 20 image 1x1\n"
        "drawImage 1.5,20,1,1 opacity 1 image 1x1\ndrawPicture 0,1.5,20,20 opacity 1.5 size 4,2 {\n"
        "  setColor 1073741824,-1073741824,7,1.5\n  addRectanglePath 0,0,1.5,1.5\n  fill\n}\n"
        "drawPicture 1.5,20,4,2 opacity 1 size 4,2 {\n  setColor 1073741824,-1073741824,7,1.5\n"
        "  addRectanglePath 0,0,1.5,1.5\n  fill\n}\ndrawMaskedPicture 20,1.5,5,20 size 4,2 {\n"
        "  setColor 1073741824,-1073741824,7,1.5\n  addRectanglePath 0,0,1.5,1.5\n  fill\n}\n"
        "mask image 1x1\ndrawMaskedPicture 1.5,20,4,2 size 4,2 {\n"
        "  setColor 1073741824,-1073741824,7,1.5\n  addRectanglePath 0,0,1.5,1.5\n  fill\n}\n"
        "mask size 4,2 {\n  setColor 1073741824,-1073741824,7,1.5\n  addRectanglePath 0,0,1.5,1.5\n"
        "  fill\n}\ndrawMasked 0,0,1.5,20 {\n  drawPicture 1.5,0,4,2 opacity 1 size 4,2 {\n"
        "    setColor 1073741824,-1073741824,7,1.5\n    addRectanglePath 0,0,1.5,1.5\n    fill\n  }\n}\n"
        "drawCompositedPicture 20,20,20,1.5 Xor size 4,2 {\n  setColor 1073741824,-1073741824,7,1.5\n"
        "  addRectanglePath 0,0,1.5,1.5\n  fill\n}\nlower size 4,2 {\n"
        "  setColor 1073741824,-1073741824,7,1.5\n  addRectanglePath 0,0,1.5,1.5\n  fill\n}\n"
        "drawComposited 0,0,20,1.5 Screen {\n  drawPicture 1.5,0,4,2 opacity 1 size 4,2 {\n"
        "    setColor 1073741824,-1073741824,7,1.5\n    addRectanglePath 0,0,1.5,1.5\n    fill\n  }\n}\n"
        "addRectanglePath 0,0,1.5,20\nclipPreserve\nclip\ndrawRects 0,0,2,20\nrestoreState\n";
    UXRecordingPainter painter;
    uxDrawEverything(painter, 1.5, 20);
    EXPECT_EQ(painter.getText(), expected);
}

TEST(UXRecordingPainter, PlayingIntoARecorderGivesTheSameRecording)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        UXRecordingPainter first(scale), second(scale);
        uxDrawWithNumbers(first, 1.5, 20);
        first.replay(second);
        EXPECT_EQ(first.getText(), second.getText());
        EXPECT_EQ(first.getRecording().getStepCount(), second.getRecording().getStepCount());
    }
}

TEST(UXRecordingPainter, ArcsRunStraightFromStartToEndAngle)
{
    struct Case {
        const char* name;
        double start, end;
        std::size_t curves;
        const char* first;
        const char* lastPoint;
    };
    const Case cases[] = {
        {"clockwise quarter", 0, 90, 1, "addLinePath 10,0", "0,10"},
        {"backwards quarter", 90, 0, 1, "addLinePath 0,10", "10,0"},
        {"full turn", 0, 360, 4, "addLinePath 10,0", "10,0"},
        {"backwards over zero", 0, -180, 2, "addLinePath 10,0", "-10,0"},
        {"turn and a half", 0, 540, 6, "addLinePath 10,0", "-10,0"},
        {"countless turns", 0, 360e9 + 90, 5, "addLinePath 10,0", "0,10"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXRecordingPainter painter;
        painter.UXPainter::joinCircleArcPath(0, 0, 10, c.start, c.end);
        const Lines lines = painter.getLines();
        ASSERT_EQ(lines.size(), c.curves + 1);
        EXPECT_EQ(lines.front(), c.first);
        EXPECT_TRUE(lines.back().ends_with(std::string(",") + c.lastPoint)) << lines.back();
    }
}

TEST(UXRecordingPaintConfig, PaintersAreClippedToWhatIsCommonToAllPushedRectangles)
{
    UXRecordingPaintConfig config;
    const auto paint = [&config] {
        config.getRecording().clear();
        UXPainter* painter = uxCreatePainter(&config);
        painter->fill();
        uxDestroyPainter(painter);
        return config.getRecording().getLines();
    };
    EXPECT_EQ(paint(), (Lines{"saveState", "fill", "restoreState"}));
    {
        const UXPaintClip outer(config, {0, 0, 50, 50});
        const UXPaintClip inner(config, {40, 10.2, 100, 10});
        EXPECT_EQ(paint(),
                  (Lines{"saveState", "addRectanglePath 40,10,10,10", "clip", "fill", "restoreState"}));
        const UXPaintClip nothing(config, {100, 100, 10, 10});
        EXPECT_EQ(paint(), (Lines{"saveState", "addRectanglePath 0,0,0,0", "clip", "fill", "restoreState"}));
    }
    EXPECT_EQ(config.getClip(), nullptr);
    EXPECT_EQ(uxCreatePainter(nullptr), nullptr);
    uxDestroyPainter(nullptr);
}

TEST(UXRecordingPaintConfig, PaintersBeginInTheOwnSpaceOfTheirObject)
{
    UXObject root, middle;
    auto* leaf = new UXObject; // the middle one destroys it
    UXSpace space;
    root.setRect({100, 100, 50, 50});
    middle.setRect({10, 20, 30, 30});
    leaf->setRect({1, 2, 5, 5});
    root.addChild(&middle);
    middle.addChild(leaf);

    UXRecordingPaintConfig config(1.5);
    const auto start = [&config](UXObject* object) {
        config.getRecording().clear();
        uxDestroyPainter(uxCreatePainterWithObject(&config, object));
        return config.getRecording().getLines();
    };
    EXPECT_EQ(start(nullptr), (Lines{"deviceScale 1.5", "saveState", "restoreState"}));
    EXPECT_EQ(start(&root), (Lines{"deviceScale 1.5", "saveState", "restoreState"}));
    EXPECT_EQ(start(leaf), (Lines{"deviceScale 1.5", "saveState", "translate 11,22", "restoreState"}));

    space.setRelativeOrigin({0, -4});
    space.setXScale(2);
    middle.setSpace(&space);
    const UXPaintClip clip(config, {0, 0, 20, 20});
    EXPECT_EQ(start(leaf), (Lines{"deviceScale 1.5", "saveState", "addRectanglePath 0,0,20,20", "clip",
                                  "translate 12,18", "scale 2,1", "restoreState"}));
    root.removeChild(&middle);
}
