#include "ux/ux_mirror_painter.h"

#include "ux/ux_draw_text_result.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_unmirrored_space.h"
#include "ux_hostile_drawing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

TEST(UXMirrorPainter, TwiceMirroredIsAsDrawn)
{
    UXRecordingPainter plain, recorder;
    UXMirrorPainter once(recorder), twice(static_cast<UXPainter&>(once));
    uxDrawEverything(plain, 1.5, 20);
    uxDrawEverything(twice, 1.5, 20);
    EXPECT_EQ(recorder.getText(), plain.getText());
    EXPECT_EQ(twice.getDeviceTransform(), plain.getDeviceTransform());
}

TEST(UXMirrorPainter, ExchangesLeftAndRightOfAllButTexts)
{
    struct Case {
        const char* name;
        std::function<void(UXPainter&)> draw;
        const char* expected;
    };
    const UXTextProperty property;
    const Case cases[] = {
        {"a rectangle", [](UXPainter& p) { p.addRectanglePath(10, 5, 30, 8); },
         "addRectanglePath -10,5,-30,8\n"},
        {"a quarter", [](UXPainter& p) { p.addCircleArcPath(10, 0, 5, 0, 90); },
         "addCircleArcPath -10,0,5,180,90\n"},
        {"many",
         [](UXPainter& p) {
             p.drawRects(std::vector<UXDoubleRect>{{10, 5, 30, 8}});
         },
         "drawRects -40,5,30,8\n"},
        {"a turned space",
         [](UXPainter& p) {
             p.translate(10, 20);
             p.rotate(-45);
         },
         "translate -10,20\nrotate 45\n"},
        {"a text",
         [&](UXPainter& p) {
             p.drawText("12 %", {10, 5, 30, 8}, property.font, UXTextAlign::Left, property.option, 2);
         },
         "drawText -40,5,30,8 \"12 %\" font \"Default\" 12 align Right option Default lineMode 2\n"},
        {"a sign",
         [](UXPainter& p) {
             const UXUnmirroredSpace space(p, 10);
             p.addLinePath(6, 0, 8, 1);
         },
         "saveState\ntranslate -20,0\nscale -1,1\naddLinePath -6,0,-8,1\nrestoreState\n"},
        {"a layer",
         [](UXPainter& p) {
             p.drawComposited([](UXPainter* on) { on->setStartPoint(1, 2); }, nullptr, {0, 0, 5, 5},
                              UXCompositionMode::Xor);
         },
         "drawComposited -5,0,5,5 Xor {\n  setStartPoint -1,2\n}\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXRecordingPainter recorder;
        UXMirrorPainter painter(recorder);
        c.draw(painter);
        EXPECT_EQ(recorder.getText(), c.expected);
    }

    UXRecordingPainter recorder;
    UXMirrorPainter painter(recorder);
    UXDrawTextResult result;
    painter.drawText("a", {10, 5, 30, 8}, property, result);
    EXPECT_EQ(result.textRect.x, 10) << "an answer is in the space of the question";
}
