#include "ux/ux_recording_painter.h"

#include "ux/ux_draw_text_result.h"
#include "ux/ux_image.h"
#include "ux/ux_object.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_picture.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_space.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using Lines = std::vector<std::string>;

Lines record(const std::function<void(UXPainter&)>& draw, double deviceScale = 1)
{
    UXRecordingPainter painter(deviceScale);
    draw(painter);
    return painter.getLines();
}

UXPicture makePicture(const UXColor& color)
{
    UXPicture picture;
    picture.registerPaintAction(
        [color](UXPainter* painter) {
            painter->setColor(color);
            painter->addRectanglePath(0, 0, 4, 2);
            painter->fill();
        },
        {4, 2});
    return picture;
}

/** Draws with every operation of a painter. */
void drawEverything(UXPainter& painter)
{
    const UXPicture red = makePicture({255, 0, 0}), clear = makePicture({0, 0, 0, 0.5});
    const UXImage image(1, 1, {0xff102030u});
    const UXTextProperty property;
    const auto layer = [](UXPainter* on) { on->drawRects(std::vector<UXDoubleRect>{{0.4, 0, 2, 2}}); };
    const std::vector<UXDoublePoint> points{{0, 0}, {NAN, 0}, {3, 4.5}};

    painter.saveState();
    painter.setColor({1, 2, 3, 0.25});
    painter.setLineWidth(1.5);
    painter.setLineCap(UXLineCapStyle::Round);
    painter.setLineJoin(UXLineJoinStyle::Bevel);
    painter.setLineDash(UXLineDashStyle::DashDot);
    painter.setLineDash({1, 2.5});
    painter.setLineDash({3}, -1);
    painter.setFillRule(UXFillRule::EvenOdd);
    painter.setAntialias(UXAntialiasStyle::None);
    painter.setCompositionMode(UXCompositionMode::Multiply);
    painter.translate(10, 20);
    painter.rotate(90);
    painter.rotate(-90);
    painter.scale(2, 0.5);
    painter.setStartPoint(0, -0.0);
    painter.addLinePath(10, 20);
    painter.addLinePath(1, 2, 3, 4);
    painter.addRelativeLinePath(5, 6);
    painter.addRectanglePath(1, 2, 3, 4);
    painter.addRectanglePath({5, 6, 7, 8});
    painter.addCircleArcPath(0, 0, 5, 0, 90);
    painter.joinCircleArcPath(0, 0, 5, 90, 0);
    painter.addCubicCurvePath(1, 2, 3, 4, 5, 6);
    painter.startNewSubPath();
    painter.closePath();
    painter.translatePath(1, 2);
    painter.rotatePath(30);
    painter.scalePath(2, 3);
    painter.fillPreserve();
    painter.strokePreserve();
    painter.clipPreserve();
    painter.stroke();
    painter.clip();
    painter.fill();
    painter.beginLinearGradientPattern(0, 0, 0, 100, UXSourceOperator::Reflect);
    painter.addGradientPatternColorStop({255, 255, 255}, 0.1);
    painter.endPattern();
    painter.usePattern();
    painter.drawText("a \"b\"\n\x01", {0, 0, 100, 16}, property);
    painter.drawText("\xc3\xa9", {0, 0, 100, 16}, property.font, UXTextAlign::Right,
                     UXTextOption::EllipsisEnd, 1);
    painter.drawImage(&image, {0, 0, 10, 10}, 0.5);
    painter.drawImage(&image, UXDoublePoint(7, 8), 1);
    painter.drawPicture(&red, {0, 0, 10, 10}, 0.5);
    painter.drawPicture(&red, UXDoublePoint(7, 8), 1);
    painter.drawMaskedPicture(&red, &image, {0, 0, 10, 10});
    painter.drawMaskedPicture(&red, &clear, UXDoublePoint(7, 8));
    painter.drawMasked(layer, nullptr, {0, 0, 10, 10});
    painter.drawCompositedPicture(&red, &clear, {0, 0, 10, 10}, UXCompositionMode::Xor);
    painter.drawComposited(layer, nullptr, {0, 0, 10, 10}, UXCompositionMode::Screen);
    painter.drawRects(std::vector<UXDoubleRect>{{0, 0, 10, 10}, {0, 0, 0, 10}, {20, 0, 10, 10}});
    painter.drawPolyline(points);
    painter.drawMarks(points, 3);
    painter.restoreState();
}

} // namespace

TEST(UXRecordingPainter, EveryOperationIsOneReadableLine)
{
    const std::string expected =
        "saveState\nsetColor 1,2,3,0.25\nsetLineWidth 1.5\nsetLineCap Round\nsetLineJoin Bevel\n"
        "setLineDash DashDot\nsetLineDash 1 2.5 offset 0\nsetLineDash 3 offset -1\n"
        "setFillRule EvenOdd\nsetAntialias None\nsetCompositionMode Multiply\ntranslate 10,20\n"
        "rotate 90\nrotate -90\nscale 2,0.5\nsetStartPoint 0,0\naddLinePath 10,20\n"
        "addLinePath 1,2,3,4\naddRelativeLinePath 5,6\naddRectanglePath 1,2,3,4\n"
        "addRectanglePath 5,6,7,8\naddCircleArcPath 0,0,5,0,90\njoinCircleArcPath 0,0,5,90,0\n"
        "addCubicCurvePath 1,2,3,4,5,6\nstartNewSubPath\nclosePath\ntranslatePath 1,2\nrotatePath 30\n"
        "scalePath 2,3\nfillPreserve\nstrokePreserve\nclipPreserve\nstroke\nclip\nfill\n"
        "beginLinearGradientPattern 0,0,0,100 Reflect\n"
        "addGradientPatternColorStop 255,255,255,1 at 0.1\nendPattern\nusePattern\n"
        "drawText 0,0,100,16 \"a \\\"b\\\"\\n\\x01\" font \"Default\" 12 align Left option Default lineMode "
        "2 color 0,0,0,1\n"
        "drawText 0,0,100,16 \"\xc3\xa9\" font \"Default\" 12 align Right option EllipsisEnd lineMode 1\n"
        "drawImage 0,0,10,10 opacity 0.5 image 1x1\ndrawImage 7,8,1,1 opacity 1 image 1x1\n"
        "drawPicture 0,0,10,10 opacity 0.5 size 4,2 {\n  setColor 255,0,0,1\n"
        "  addRectanglePath 0,0,4,2\n  fill\n}\ndrawPicture 7,8,4,2 opacity 1 size 4,2 {\n"
        "  setColor 255,0,0,1\n  addRectanglePath 0,0,4,2\n  fill\n}\n"
        "drawMaskedPicture 0,0,10,10 size 4,2 {\n  setColor 255,0,0,1\n  addRectanglePath 0,0,4,2\n"
        "  fill\n}\nmask image 1x1\ndrawMaskedPicture 7,8,4,2 size 4,2 {\n  setColor 255,0,0,1\n"
        "  addRectanglePath 0,0,4,2\n  fill\n}\nmask size 4,2 {\n  setColor 0,0,0,0.5\n"
        "  addRectanglePath 0,0,4,2\n  fill\n}\ndrawMasked 0,0,10,10 {\n  drawRects 0.5,0,2,2\n}\n"
        "drawCompositedPicture 0,0,10,10 Xor size 4,2 {\n  setColor 255,0,0,1\n"
        "  addRectanglePath 0,0,4,2\n  fill\n}\nlower size 4,2 {\n  setColor 0,0,0,0.5\n"
        "  addRectanglePath 0,0,4,2\n  fill\n}\ndrawComposited 0,0,10,10 Screen {\n"
        "  drawRects 0.5,0,2,2\n}\ndrawRects 0,0,10,10 20,0,10,10\ndrawPolyline 0,0 nan,0 3,4.5\n"
        "drawMarks radius 3 0,0 nan,0 3,4.5\nrestoreState\n";
    UXRecordingPainter painter;
    drawEverything(painter);
    EXPECT_EQ(painter.getText(), expected);
}

TEST(UXRecordingPainter, PlayingIntoARecorderGivesTheSameRecording)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        UXRecordingPainter first(scale), second(scale);
        drawEverything(first);
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
        const Lines lines = record(
            [&c](UXPainter& p) { p.UXPainter::joinCircleArcPath(0, 0, 10, c.start, c.end); });
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
