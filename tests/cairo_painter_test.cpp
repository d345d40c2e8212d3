#include "cairo_test_canvas.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_image.h"
#include "ux/ux_picture.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux_hostile_drawing.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

const UXColor red(255, 0, 0), green(0, 255, 0), blue(0, 0, 255);

void fillRect(UXPainter& painter, const UXColor& color, const UXDoubleRect& rect)
{
    painter.setColor(color);
    painter.addRectanglePath(rect);
    painter.fill();
}

UXPicture makePicture(const UXDoubleSize& size, UXPaintFunction action)
{
    UXPicture picture;
    picture.registerPaintAction(std::move(action), size);
    return picture;
}

/** Fills with a gradient from red at x = 5 + 10 firstStop to last at x = 15. */
void useGradient(UXPainter& painter, UXSourceOperator beyond, double firstStop, const UXColor& last)
{
    painter.beginLinearGradientPattern(5, 0, 15, 0, beyond);
    painter.addGradientPatternColorStop(red, firstStop);
    painter.addGradientPatternColorStop(last, 1);
    painter.endPattern();
    painter.usePattern();
}

} // namespace

TEST(CairoPainter, DrawsWhatTheOperationsSay)
{
    struct Probe {
        int x, y;
        std::uint32_t expected;
    };
    struct Case {
        const char* name;
        std::function<void(UXPainter&)> action;
        std::vector<Probe> probes;
    };
    const UXDoubleRect all(0, 0, 20, 20);
    const UXPicture redPicture = makePicture({2, 2}, [](UXPainter* p) { fillRect(*p, red, {0, 0, 9, 9}); });
    const UXPicture leftHalf = makePicture({4, 4}, [](UXPainter* p) { fillRect(*p, blue, {0, 0, 2, 4}); });
    const UXPicture twice = makePicture({8, 8}, [](UXPainter* p) {
        fillRect(*p, red, {0, 0, 8, 8}), fillRect(*p, red, {0, 0, 4, 8});
    });
    const UXImage twoPixels(2, 1, {kRed, kBlue}), rightMask(2, 1, {kClear, kWhite}), noPixels;
    const std::vector<Case> cases = {
        {"fill forgets the path and fillPreserve keeps it",
         [](UXPainter& p) {
             fillRect(p, red, {0, 0, 4, 4});
             p.addRectanglePath(8, 8, 4, 4), p.fillPreserve(), p.setColor(blue), p.fill();
         },
         {{1, 1, kRed}, {9, 9, kBlue}}},
        {"even-odd leaves the inner one out",
         [](UXPainter& p) {
             p.setFillRule(UXFillRule::EvenOdd), p.addRectanglePath(4, 4, 4, 4),
                 fillRect(p, red, {0, 0, 12, 12});
         },
         {{1, 1, kRed}, {5, 5, kClear}}},
        {"a clip holds until the state is restored",
         [&](UXPainter& p) {
             p.saveState(), p.addRectanglePath(4, 4, 4, 4), p.clip(), fillRect(p, red, all), p.restoreState();
             fillRect(p, blue, {12, 0, 4, 4});
         },
         {{4, 4, kRed}, {7, 7, kRed}, {8, 7, kClear}, {3, 4, kClear}, {13, 1, kBlue}}},
        {"clipping to an empty path leaves nothing",
         [&](UXPainter& p) { p.clip(), fillRect(p, red, all); },
         {{9, 9, kClear}}},
        {"a path with a point that is not finite draws nothing, the next one does",
         [](UXPainter& p) {
             p.setStartPoint(0, 0), p.addLinePath(20, 0), p.addLinePath(INFINITY, 20), p.closePath(),
                 p.fill();
             fillRect(p, red, {8, 8, 4, 4});
         },
         {{5, 1, kClear}, {9, 9, kRed}}},
        {"translate, scale and rotate about the origin",
         [](UXPainter& p) {
             p.translate(10, 10), p.rotate(90), p.scale(2, 4), fillRect(p, red, {0, 0, 1, 1});
         },
         {{9, 10, kRed}, {6, 11, kRed}, {10, 10, kClear}, {9, 12, kClear}, {5, 10, kClear}}},
        {"the path-only forms move what is there",
         [](UXPainter& p) {
             p.addRectanglePath(0, 0, 2, 2), p.scalePath(2, 2), p.translatePath(4, 8), p.rotatePath(0);
             fillRect(p, red, {0, 0, 2, 2});
         },
         {{4, 8, kRed}, {7, 11, kRed}, {8, 11, kClear}, {1, 1, kRed}, {3, 3, kClear}}},
        {"arcs grow clockwise, joined ones make a slice",
         [](UXPainter& p) {
             p.setStartPoint(10, 10), p.joinCircleArcPath(10, 10, 9, 0, 90), p.closePath(), p.fill();
         },
         {{13, 13, kBlack}, {13, 7, kClear}, {7, 13, kClear}, {7, 7, kClear}}},
        {"a line as wide as it is told",
         [](UXPainter& p) { p.setLineWidth(4), p.addLinePath(0, 10, 20, 10), p.stroke(); },
         {{5, 8, kBlack}, {5, 11, kBlack}, {5, 7, kClear}, {5, 12, kClear}}},
        {"caps lengthen a line",
         [](UXPainter& p) {
             p.setLineWidth(4), p.setLineCap(UXLineCapStyle::Square), p.addLinePath(6, 4, 12, 4), p.stroke();
             p.setLineCap(UXLineCapStyle::Butt), p.addLinePath(6, 14, 12, 14), p.stroke();
         },
         {{4, 4, kBlack}, {13, 4, kBlack}, {4, 14, kClear}, {13, 14, kClear}}},
        {"joins fill or cut the corner",
         [](UXPainter& p) {
             p.setLineWidth(4), p.addLinePath(0, 4, 8, 4), p.addLinePath(8, 20), p.stroke();
             p.setLineJoin(UXLineJoinStyle::Bevel), p.addLinePath(10, 4, 16, 4), p.addLinePath(16, 20),
                 p.stroke();
         },
         {{9, 2, kBlack}, {17, 2, kClear}}},
        {"dashes begin at their offset",
         [](UXPainter& p) {
             p.setLineWidth(2), p.setLineDash({4, 4}, 4), p.addLinePath(0, 5, 20, 5), p.stroke();
             p.setLineDash({-1, 4}, 0), p.addLinePath(0, 15, 20, 15), p.stroke();
         },
         {{1, 5, kClear}, {5, 5, kBlack}, {9, 5, kClear}, {1, 15, kBlack}, {9, 15, kBlack}}},
        {"without antialiasing a pixel is covered or not",
         [](UXPainter& p) {
             p.setAntialias(UXAntialiasStyle::None), fillRect(p, red, {2.6, 2.6, 4, 4});
         },
         {{2, 2, kClear}, {3, 3, kRed}, {6, 6, kRed}, {7, 7, kClear}}},
        {"a gradient has its colours at its ends and beyond them",
         [](UXPainter& p) {
             useGradient(p, UXSourceOperator::Pad, -3, blue), p.addRectanglePath(0, 0, 20, 10), p.fill();
         },
         {{0, 5, kRed}, {4, 5, kRed}, {16, 5, kBlue}, {5, 15, kClear}}},
        {"a gradient may stop at its ends, and the colour takes its place",
         [](UXPainter& p) {
             useGradient(p, UXSourceOperator::None, 0, red), p.addRectanglePath(0, 0, 20, 10), p.fill();
             fillRect(p, green, {0, 15, 20, 5});
         },
         {{2, 5, kClear}, {10, 5, kRed}, {18, 5, kClear}, {9, 16, kGreen}}},
        {"an image is stretched",
         [&](UXPainter& p) { p.drawImage(&twoPixels, all, 1); },
         {{0, 0, kRed}, {3, 19, kRed}, {16, 0, kBlue}, {19, 19, kBlue}}},
        {"an image stands in its own size at a point",
         [&](UXPainter& p) { p.drawImage(&twoPixels, UXDoublePoint(4, 4), 1); },
         {{4, 4, kRed}, {5, 4, kBlue}, {6, 4, kClear}, {4, 5, kClear}}},
        {"an opacity holds for the whole image",
         [&](UXPainter& p) { p.drawImage(&twoPixels, all, 0.5); },
         {{0, 0, 0x80800000}}},
        {"a picture is stretched and cut at its size",
         [&](UXPainter& p) { p.drawPicture(&redPicture, UXDoubleRect(4, 4, 8, 4), 1); },
         {{4, 4, kRed}, {11, 7, kRed}, {12, 7, kClear}, {11, 8, kClear}}},
        {"overlapping parts of a picture share its opacity",
         [&](UXPainter& p) { p.drawPicture(&twice, UXDoublePoint(0, 0), 0.5); },
         {{1, 1, 0x80800000}, {6, 1, 0x80800000}}},
        {"a mask lets through what it covers",
         [&](UXPainter& p) { p.drawMaskedPicture(&redPicture, &leftHalf, all); },
         {{1, 1, kRed}, {9, 19, kRed}, {11, 1, kClear}}},
        {"an image masks by its alpha",
         [&](UXPainter& p) { p.drawMaskedPicture(&redPicture, &rightMask, all); },
         {{1, 1, kClear}, {18, 18, kRed}}},
        {"the source shows through a mask that is drawn",
         [](UXPainter& p) {
             const auto mask = [](UXPainter* on) { fillRect(*on, red, {4, 4, 4, 4}); };
             p.setColor(green), p.drawMasked(mask, nullptr, {0, 0, 6, 20});
         },
         {{4, 4, kGreen}, {5, 7, kGreen}, {6, 5, kClear}, {1, 1, kClear}}},
        {"two pictures are combined before they are drawn",
         [&](UXPainter& p) {
             fillRect(p, green, all);
             p.drawCompositedPicture(&redPicture, &leftHalf, {0, 0, 16, 16}, UXCompositionMode::In);
         },
         {{1, 1, kRed}, {12, 12, kGreen}, {18, 18, kGreen}}},
        {"a layer is combined inside its rectangle only",
         [&](UXPainter& p) {
             const auto layer = [](UXPainter* on) { fillRect(*on, blue, {0, 0, 4, 4}); };
             fillRect(p, red, all);
             p.drawComposited(layer, nullptr, {0, 0, 8, 8}, UXCompositionMode::DestinationIn);
         },
         {{1, 1, kRed}, {6, 6, kClear}, {10, 10, kRed}}},
        {"modes of composition",
         [&](UXPainter& p) {
             fillRect(p, red, all);
             p.setCompositionMode(UXCompositionMode::Add), fillRect(p, blue, {0, 0, 4, 4});
             p.setCompositionMode(UXCompositionMode::Clear), fillRect(p, blue, {4, 0, 4, 4});
             p.setCompositionMode(UXCompositionMode::DestinationOver), fillRect(p, blue, {4, 0, 8, 4});
             p.setCompositionMode(UXCompositionMode::Multiply), fillRect(p, green, {12, 0, 4, 4});
         },
         {{1, 1, 0xFFFF00FF}, {5, 1, kBlue}, {9, 1, kRed}, {13, 1, kBlack}}},
        {"what a layer does to the state ends with it",
         [&](UXPainter& p) {
             const auto layer = [](UXPainter* on) {
                 on->restoreState(), on->restoreState(), on->saveState(), on->translate(5, 5);
                 on->setColor(blue), on->setLineWidth(9), on->addRectanglePath(0, 0, 1, 1);
             };
             p.setColor(red), p.addRectanglePath(0, 0, 9, 9);
             p.drawComposited(layer, nullptr, all, UXCompositionMode::Over);
             p.fill(), p.addRectanglePath(10, 10, 5, 5), p.fill();
         },
         {{12, 12, kRed}, {1, 1, kClear}, {6, 6, kClear}}},
        {"a picture that draws itself ends",
         [](UXPainter& p) {
             UXPicture endless;
             const auto drawAgain = [&endless](UXPainter* on) {
                 fillRect(*on, red, {0, 0, 9, 9}), on->drawPicture(&endless, UXDoubleRect(0, 0, 9, 9), 0.99);
             };
             endless.registerPaintAction(drawAgain, {9, 9});
             p.drawPicture(&endless, UXDoublePoint(0, 0), 1);
         },
         {{4, 4, kRed}}},
        {"nothing is drawn by nothing",
         [&](UXPainter& p) {
             const UXPicture noSize = makePicture({0, 5}, [&](UXPainter* on) { fillRect(*on, red, all); });
             p.drawImage(nullptr, all, 1), p.drawImage(&noPixels, all, 1);
             p.drawPicture(nullptr, all, 1), p.drawPicture(&noSize, all, 1);
             p.drawMasked({}, nullptr, all), p.drawComposited({}, nullptr, all, {});
             p.endPattern(), p.usePattern(), p.restoreState(), p.setCompositionMode(UXCompositionMode::In),
                 p.fill();
         },
         {{4, 4, kClear}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CairoTestCanvas canvas(20, 20);
        canvas.draw(c.action);
        for (const Probe& probe : c.probes)
            EXPECT_EQ(canvas.pixelAt(probe.x, probe.y), probe.expected)
                << "at " << probe.x << ", " << probe.y;
    }
}

TEST(CairoPainter, RectanglesStandOnWholePixelsAtEveryScale)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SCOPED_TRACE(scale);
        CairoTestCanvas canvas(40, 40, scale);
        canvas.draw([](UXPainter& painter) {
            painter.setColor(red);
            painter.translate(0.3, 0.3);
            const UXDoubleRect rects[] = {{1.1, 1.1, 7.3, 5.2}, {8.4, 1.1, 6.9, 5.2}};
            painter.drawRects(rects);
            const double ys[] = {20, 25.5, 31.1};
            painter.drawHorizontalLines(ys, 2, 30, 1);
        });
        for (const std::uint32_t pixel : canvas.pixels())
            EXPECT_TRUE(pixel == kClear || pixel == kRed) << std::hex << pixel;
        // Rectangles that touch still do, and lines all have the same thickness.
        const int y = static_cast<int>(4 * scale);
        const UXRect ink = canvas.inkBounds();
        for (int x = ink.x; x < static_cast<int>(14 * scale); ++x)
            EXPECT_EQ(canvas.pixelAt(x, y), kRed) << x;
        int rows = 0;
        for (int row = static_cast<int>(15 * scale); row < static_cast<int>(40 * scale); ++row)
            rows += canvas.pixelAt(static_cast<int>(10 * scale), row) == kRed;
        EXPECT_EQ(rows, 3 * std::max(1, static_cast<int>(std::lround(scale))));
    }
}

TEST(CairoPainter, ReplayedRecordingDrawsTheSamePixels)
{
    uxCairoInstall();
    const auto drawing = [](UXPainter& painter) { uxDrawWithNumbers(painter, 1.5, 20); };
    for (const double scale : {1.0, 1.5}) {
        UXRecordingPainter recorder(scale);
        drawing(recorder);
        CairoTestCanvas straight(120, 100, scale), replayed(120, 100, scale);
        straight.draw(drawing);
        replayed.draw([&](UXPainter& painter) { recorder.replay(painter); });
        EXPECT_EQ(straight.pixels(), replayed.pixels()) << scale;
        EXPECT_FALSE(uxIsEmptyRect(straight.inkBounds()));
    }
}

TEST(CairoPainter, SurvivesEveryNumber)
{
    const double inf = std::numeric_limits<double>::infinity(), most = (std::numeric_limits<double>::max)();
    const double values[] = {0, -1, 1e-300, 1e9, -1e9, 1e18, most, -most, inf, -inf, NAN};
    CairoTestCanvas canvas(20, 20);
    for (const double a : values)
        for (const double b : values)
            canvas.draw([&](UXPainter& p) { uxDrawWithNumbers(p, a, b); });
    // The surface still takes what is drawn on it.
    canvas.draw([](UXPainter& painter) { fillRect(painter, green, {0, 0, 20, 20}); });
    EXPECT_EQ(canvas.pixelAt(10, 10), kGreen);
}

TEST(CairoPainter, WritesManyRectanglesAsItFillsThemOneByOne)
{
    const std::vector<UXDoubleRect> rects{{1.2, 1, 7.4, 9}, {9, 3, 0.2, 40}, {-5, 12, 1e6, 3.3}, {4, 4, 6, 6},
                                          {2, 20, 0, 5},    {12, 5, 3, 30},  {NAN, 0, 4, 4}};
    const auto draw = [&](bool together, const UXColor& color, double scale, const UXDoubleRect& clip) {
        CairoTestCanvas canvas(24, 18, scale);
        canvas.drawWhiteGround().draw([&](UXPainter& painter) {
            painter.addRectanglePath(clip), painter.clip();
            painter.translate(0.25, 1);
            painter.setColor(color);
            if (together)
                painter.drawRects(rects);
            for (const UXDoubleRect& rect : rects)
                if (!together)
                    painter.drawRects({&rect, 1});
        });
        return canvas.pixels();
    };
    for (const UXColor& color : {red, UXColor(200, 100, 50, 0.3)})
        for (const double scale : {1.0, 1.5, 2.0})
            for (const UXDoubleRect& clip : {UXDoubleRect(0, 0, 24, 18), UXDoubleRect(2, 2, 14, 12),
                                             UXDoubleRect(2.3, 2.7, 9, 9), UXDoubleRect(30, 2, 4, 4)})
                EXPECT_EQ(draw(true, color, scale, clip), draw(false, color, scale, clip)) << scale << clip.x;
}
