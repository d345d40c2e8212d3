#include "cairo_test_canvas.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_image.h"
#include "ux/ux_picture.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux_hostile_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <sstream>
#include <string>

namespace {

const UXColor red(255, 0, 0), green(0, 255, 0), blue(0, 0, 255);

void fillRect(UXPainter& painter, const UXColor& color, const UXDoubleRect& rect)
{
    painter.setColor(color);
    painter.addRectanglePath(rect);
    painter.fill();
}

/** As far as smoothing makes edges, two ways of drawing the same may differ. */
void expectSameButForEdges(const std::vector<std::uint32_t>& actual,
                           const std::vector<std::uint32_t>& expected)
{
    double sum = 0;
    std::size_t farOff = 0;
    for (std::size_t i = 0; i < actual.size(); ++i) {
        const int difference = std::abs(static_cast<int>(actual[i] & 255) -
                                        static_cast<int>(expected[i] & 255));
        sum += difference;
        farOff += difference > 24;
    }
    EXPECT_LT(sum / static_cast<double>(actual.size()), 1);
    EXPECT_LT(static_cast<double>(farOff), 0.01 * static_cast<double>(actual.size()));
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

/** @param points "x,y colour" for each pixel, with a blank between them
 *  @return the same with the colours that the canvas has there */
std::string lookAt(const CairoTestCanvas& canvas, const std::string& points)
{
    static const std::map<std::uint32_t, const char*> names = {
        {kClear, "clear"}, {kBlack, "black"},       {kRed, "red"},           {kGreen, "green"},
        {kBlue, "blue"},   {0xFFFF00FF, "magenta"}, {0x80800000, "half-red"}};
    std::istringstream in(points);
    std::ostringstream seen;
    std::string color;
    char comma = ',';
    for (int x = 0, y = 0; in >> x >> comma >> y >> color;) {
        const std::uint32_t pixel = canvas.pixelAt(x, y);
        seen << (seen.tellp() > 0 ? " " : "") << x << comma << y << " ";
        names.contains(pixel) ? seen << names.at(pixel) : seen << std::hex << pixel << std::dec;
    }
    return seen.str();
}

} // namespace

TEST(CairoPainter, DrawsWhatTheOperationsSay)
{
    struct Case {
        const char* name;
        std::string expected; // colours of some pixels
        std::function<void(UXPainter&)> action;
    };
    const UXDoubleRect all(0, 0, 20, 20);
    const UXPicture redPicture = makePicture({2, 2}, [](UXPainter* p) { fillRect(*p, red, {0, 0, 9, 9}); });
    const UXPicture leftHalf = makePicture({4, 4}, [](UXPainter* p) { fillRect(*p, blue, {0, 0, 2, 4}); });
    const UXPicture twice = makePicture({8, 8}, [](UXPainter* p) {
        fillRect(*p, red, {0, 0, 8, 8}), fillRect(*p, red, {0, 0, 4, 8});
    });
    const UXImage twoPixels(2, 1, {kRed, kBlue}), rightMask(2, 1, {kClear, kWhite}), noPixels;
    const std::vector<Case> cases = {
        {"fill forgets the path and fillPreserve keeps it", "1,1 red 9,9 blue",
         [](UXPainter& p) {
             fillRect(p, red, {0, 0, 4, 4});
             p.addRectanglePath(8, 8, 4, 4), p.fillPreserve(), p.setColor(blue), p.fill();
         }},
        {"even-odd leaves the inner one out", "1,1 red 5,5 clear",
         [](UXPainter& p) {
             p.setFillRule(UXFillRule::EvenOdd), p.addRectanglePath(4, 4, 4, 4),
                 fillRect(p, red, {0, 0, 12, 12});
         }},
        {"a clip holds until the state is restored", "4,4 red 7,7 red 8,7 clear 3,4 clear 13,1 blue",
         [&](UXPainter& p) {
             p.saveState(), p.addRectanglePath(4, 4, 4, 4), p.clip(), fillRect(p, red, all), p.restoreState();
             fillRect(p, blue, {12, 0, 4, 4});
         }},
        {"clipping to an empty path leaves nothing", "9,9 clear",
         [&](UXPainter& p) { p.clip(), fillRect(p, red, all); }},
        {"a path with a point that is not finite draws nothing, the next one does", "5,1 clear 9,9 red",
         [](UXPainter& p) {
             p.setStartPoint(0, 0), p.addLinePath(20, 0), p.addLinePath(INFINITY, 20), p.closePath(),
                 p.fill();
             fillRect(p, red, {8, 8, 4, 4});
         }},
        {"translate, scale and rotate about the origin",
         "9,10 red 6,11 red 10,10 clear 9,12 clear 5,10 clear",
         [](UXPainter& p) {
             p.translate(10, 10), p.rotate(90), p.scale(2, 4), fillRect(p, red, {0, 0, 1, 1});
         }},
        {"the path-only forms move what is there", "4,8 red 7,11 red 8,11 clear 1,1 red 3,3 clear",
         [](UXPainter& p) {
             p.addRectanglePath(0, 0, 2, 2), p.scalePath(2, 2), p.translatePath(4, 8), p.rotatePath(0);
             fillRect(p, red, {0, 0, 2, 2});
         }},
        {"arcs grow clockwise, joined ones make a slice", "13,13 black 13,7 clear 7,13 clear 7,7 clear",
         [](UXPainter& p) {
             p.setStartPoint(10, 10), p.joinCircleArcPath(10, 10, 9, 0, 90), p.closePath(), p.fill();
         }},
        {"a line is as wide as it is told, and caps lengthen it",
         "4,4 black 13,4 black 4,14 clear 13,14 clear 8,12 black 8,15 black 8,11 clear 8,16 clear",
         [](UXPainter& p) {
             p.setLineWidth(4), p.setLineCap(UXLineCapStyle::Square), p.addLinePath(6, 4, 12, 4), p.stroke();
             p.setLineCap(UXLineCapStyle::Butt), p.addLinePath(6, 14, 12, 14), p.stroke();
         }},
        {"joins fill or cut the corner", "9,2 black 17,2 clear",
         [](UXPainter& p) {
             p.setLineWidth(4), p.addLinePath(0, 4, 8, 4), p.addLinePath(8, 20), p.stroke();
             p.setLineJoin(UXLineJoinStyle::Bevel), p.addLinePath(10, 4, 16, 4), p.addLinePath(16, 20),
                 p.stroke();
         }},
        {"dashes begin at their offset", "1,5 clear 5,5 black 9,5 clear 1,15 black 9,15 black",
         [](UXPainter& p) {
             p.setLineWidth(2), p.setLineDash({4, 4}, 4), p.addLinePath(0, 5, 20, 5), p.stroke();
             p.setLineDash({-1, 4}, 0), p.addLinePath(0, 15, 20, 15), p.stroke();
         }},
        {"without antialiasing a pixel is covered or not", "2,2 clear 3,3 red 6,6 red 7,7 clear",
         [](UXPainter& p) {
             p.setAntialias(UXAntialiasStyle::None), fillRect(p, red, {2.6, 2.6, 4, 4});
         }},
        {"a gradient has its colours at its ends and beyond them", "0,5 red 4,5 red 16,5 blue 5,15 clear",
         [](UXPainter& p) {
             useGradient(p, UXSourceOperator::Pad, -3, blue), p.addRectanglePath(0, 0, 20, 10), p.fill();
         }},
        {"a gradient may stop at its ends, and the colour takes its place",
         "2,5 clear 10,5 red 18,5 clear 9,16 green",
         [](UXPainter& p) {
             useGradient(p, UXSourceOperator::None, 0, red), p.addRectanglePath(0, 0, 20, 10), p.fill();
             fillRect(p, green, {0, 15, 20, 5});
         }},
        {"an image is stretched, stands in its own size at a point, and shows through as a whole",
         "0,0 red 3,9 red 16,0 blue 19,9 blue 4,12 red 5,12 blue 6,12 clear 4,13 clear 0,15 half-red",
         [&](UXPainter& p) {
             p.drawImage(&twoPixels, UXDoubleRect(0, 0, 20, 10), 1);
             p.drawImage(&twoPixels, UXDoublePoint(4, 12), 1);
             p.drawImage(&twoPixels, UXDoubleRect(0, 15, 20, 5), 0.5);
         }},
        {"a picture is stretched and cut at its size", "4,4 red 11,7 red 12,7 clear 11,8 clear",
         [&](UXPainter& p) { p.drawPicture(&redPicture, UXDoubleRect(4, 4, 8, 4), 1); }},
        {"overlapping parts of a picture share its opacity", "1,1 half-red 6,1 half-red",
         [&](UXPainter& p) { p.drawPicture(&twice, UXDoublePoint(0, 0), 0.5); }},
        {"a mask lets through what it covers, an image by its alpha",
         "1,1 red 9,9 red 11,1 clear 1,11 clear 18,18 red",
         [&](UXPainter& p) {
             p.drawMaskedPicture(&redPicture, &leftHalf, UXDoubleRect(0, 0, 20, 10));
             p.drawMaskedPicture(&redPicture, &rightMask, UXDoubleRect(0, 10, 20, 10));
         }},
        {"the source shows through a mask that is drawn", "4,4 green 5,7 green 6,5 clear 1,1 clear",
         [](UXPainter& p) {
             const auto mask = [](UXPainter* on) { fillRect(*on, red, {4, 4, 4, 4}); };
             p.setColor(green), p.drawMasked(mask, nullptr, {0, 0, 6, 20});
         }},
        {"two pictures are combined before they are drawn", "1,1 red 12,12 green 18,18 green",
         [&](UXPainter& p) {
             fillRect(p, green, all);
             p.drawCompositedPicture(&redPicture, &leftHalf, {0, 0, 16, 16}, UXCompositionMode::In);
         }},
        {"a layer is combined inside its rectangle only", "1,1 red 6,6 clear 10,10 red",
         [&](UXPainter& p) {
             const auto layer = [](UXPainter* on) { fillRect(*on, blue, {0, 0, 4, 4}); };
             fillRect(p, red, all);
             p.drawComposited(layer, nullptr, {0, 0, 8, 8}, UXCompositionMode::DestinationIn);
         }},
        {"modes of composition", "1,1 magenta 5,1 blue 9,1 red 13,1 black",
         [&](UXPainter& p) {
             fillRect(p, red, all);
             p.setCompositionMode(UXCompositionMode::Add), fillRect(p, blue, {0, 0, 4, 4});
             p.setCompositionMode(UXCompositionMode::Clear), fillRect(p, blue, {4, 0, 4, 4});
             p.setCompositionMode(UXCompositionMode::DestinationOver), fillRect(p, blue, {4, 0, 8, 4});
             p.setCompositionMode(UXCompositionMode::Multiply), fillRect(p, green, {12, 0, 4, 4});
         }},
        {"what a layer does to the state ends with it", "12,12 red 1,1 clear 6,6 clear",
         [&](UXPainter& p) {
             const auto layer = [](UXPainter* on) {
                 on->restoreState(), on->restoreState(), on->saveState(), on->translate(5, 5);
                 on->setColor(blue), on->setLineWidth(9), on->addRectanglePath(0, 0, 1, 1);
             };
             p.setColor(red), p.addRectanglePath(0, 0, 9, 9);
             p.drawComposited(layer, nullptr, all, UXCompositionMode::Over);
             p.fill(), p.addRectanglePath(10, 10, 5, 5), p.fill();
         }},
        {"a picture that draws itself ends", "4,4 red",
         [](UXPainter& p) {
             UXPicture endless;
             const auto drawAgain = [&endless](UXPainter* on) {
                 fillRect(*on, red, {0, 0, 9, 9}), on->drawPicture(&endless, UXDoubleRect(0, 0, 9, 9), 0.99);
             };
             endless.registerPaintAction(drawAgain, {9, 9});
             p.drawPicture(&endless, UXDoublePoint(0, 0), 1);
         }},
        {"nothing is drawn by nothing", "4,4 clear",
         [&](UXPainter& p) {
             const UXPicture noSize = makePicture({0, 5}, [&](UXPainter* on) { fillRect(*on, red, all); });
             p.drawImage(nullptr, all, 1), p.drawImage(&noPixels, all, 1);
             p.drawPicture(nullptr, all, 1), p.drawPicture(&noSize, all, 1);
             p.drawMasked({}, nullptr, all), p.drawComposited({}, nullptr, all, {});
             p.endPattern(), p.usePattern(), p.restoreState(), p.setCompositionMode(UXCompositionMode::In),
                 p.fill();
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CairoTestCanvas canvas(20, 20);
        canvas.draw(c.action);
        EXPECT_EQ(lookAt(canvas, c.expected), c.expected);
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
    std::vector<UXDoubleRect> rects{{1.2, 1, 7.4, 9}, {9, 3, 0.2, 40}, {-5, 12, 1e6, 3.3}, {4, 4, 6, 6},
                                    {2, 20, 0, 5},    {12, 5, 3, 30},  {NAN, 0, 4, 4}};
    for (int i = 0; i < 60; ++i) // columns beside each other, with gaps, higher than what is filled at a time
        rects.push_back({i % 24 + (i / 24) * 0.1, 2 + i % 5 * 9.0, i % 7 == 0 ? 0.6 : 1, 60 + i % 3 * 20.0});
    const auto draw = [&](bool together, const UXColor& color, double scale, const UXDoubleRect& clip) {
        CairoTestCanvas canvas(24, 90, scale);
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
            for (const UXDoubleRect& clip : {UXDoubleRect(0, 0, 24, 90), UXDoubleRect(2, 2, 14, 70),
                                             UXDoubleRect(2.3, 2.7, 9, 9), UXDoubleRect(30, 2, 4, 4)})
                EXPECT_EQ(draw(true, color, scale, clip), draw(false, color, scale, clip)) << scale << clip.x;
}

/** A line of many points covers pixels as its stroke does, but for what smoothing makes of their edges: wide
 * or narrow, translucent where it crosses itself, with gaps and lone points, clipped and far outside. */
TEST(CairoPainter, WritesLinesAsItStrokesThem)
{
    std::vector<UXDoublePoint> points;
    for (int i = 0; i < 40; ++i)
        points.emplace_back(4 + i * 1.9, 30 + 22 * std::sin(i * 1.7) * std::cos(i * 0.3));
    points[9] = {NAN, 3};
    points[11] = {3, std::numeric_limits<double>::infinity()};
    points[20] = {40, -1e12};
    points[21] = {41, 1e12};
    const auto draw = [&](bool written, double width, double scale, const UXDoubleRect& clip) {
        CairoTestCanvas canvas(80, 60, scale);
        canvas.drawWhiteGround().draw([&](UXPainter& painter) {
            painter.addRectanglePath(clip), painter.clip();
            painter.setColor(UXColor(20, 80, 160, 0.6));
            painter.setLineWidth(width);
            painter.setLineCap(UXLineCapStyle::Round);
            painter.setLineJoin(UXLineJoinStyle::Round);
            if (written)
                painter.drawPolyline(points);
            else
                painter.UXPainter::drawPolyline(points);
        });
        return canvas.pixels();
    };
    for (const double width : {0.5, 2.0, 5.0})
        for (const double scale : {1.0, 1.25, 2.0})
            for (const UXDoubleRect& clip : {UXDoubleRect(0, 0, 80, 60), UXDoubleRect(20, 12, 40, 28)}) {
                SCOPED_TRACE(testing::Message() << width << " at " << scale << " from " << clip.x);
                expectSameButForEdges(draw(true, width, scale, clip), draw(false, width, scale, clip));
            }
}

/** Areas cover what their paths fill, wherever their points lie; a polygon that is none is filled as a path.
 */
TEST(CairoPainter, WritesAreasAsItFillsThem)
{
    using Polygon = std::vector<UXDoublePoint>;
    // What lies between two edges, from right to left for a turn the other way.
    const auto makeArea = [](double left, double step, const std::function<UXDoublePoint(int)>& obtainEdges) {
        Polygon upper, lower;
        for (int i = 0; i <= 200; ++i) {
            const auto [high, low] = obtainEdges(i);
            upper.emplace_back(left + i * step, high);
            lower.emplace_back(left + i * step, low);
        }
        upper.insert(upper.end(), lower.rbegin(), lower.rend());
        return upper;
    };
    const auto noise = [](int i) { return 25 + 20 * std::sin(i * 7.3) * std::cos(i * 0.31); };
    const Polygon dense = makeArea(3.3, 0.37, [&](int i) { return UXDoublePoint(noise(i), 55.4); });
    Polygon turned = dense;
    std::rotate(turned.begin(), turned.begin() + 77, turned.end());
    Polygon star;
    for (int i = 0; i < 90; ++i)
        star.emplace_back(40 + (i % 2 ? 28 : 9) * std::cos(i * 0.0698 * 2),
                          30 + 28 * std::sin(i * 0.0698 * 2));
    const struct {
        const char* what;
        std::vector<Polygon> polygons;
    } rows[] = {
        {"dense", {dense}},
        {"begun anywhere", {turned}},
        {"from right to left", {Polygon(dense.rbegin(), dense.rend())}},
        {"few points", {makeArea(-20, 9.1, [](int i) { return UXDoublePoint(i % 2 ? 9.2 : 40.7, 52); })}},
        {"edges that cross",
         {makeArea(5, 0.35, [](int i) { return UXDoublePoint(5 + i * 0.25, 50 - i * 0.2); })}},
        {"two that meet within a pixel",
         {makeArea(5, 0.35, [&](int i) { return UXDoublePoint(noise(i) - 10, 40.4); }),
          makeArea(5, 0.35, [](int i) { return UXDoublePoint(40.4, 45 + i % 3); })}},
        {"far outside",
         {makeArea(2, 0.39, [](int i) { return UXDoublePoint(i % 9 ? 20 : -1e12, i % 7 ? 40 : 1e300); })}},
        {"with one that is not finite", {dense, {{1, 1}, {NAN, 4}, {9, 9}}}},
        {"no area along x", {star}}};
    for (const auto& row : rows)
        for (const double scale : {1.0, 1.25})
            for (const UXDoubleRect& clip : {UXDoubleRect(0, 0, 80, 60), UXDoubleRect(20, 12, 40, 28)}) {
                SCOPED_TRACE(testing::Message() << row.what << " at " << scale << " from " << clip.x);
                const auto draw = [&](bool written) {
                    CairoTestCanvas canvas(80, 60, scale);
                    canvas.drawWhiteGround().draw([&](UXPainter& painter) {
                        painter.addRectanglePath(clip), painter.clip();
                        painter.setColor(UXColor(20, 80, 160, 0.6));
                        if (written)
                            painter.drawPolygons(row.polygons);
                        else
                            painter.UXPainter::drawPolygons(row.polygons);
                    });
                    return canvas.pixels();
                };
                expectSameButForEdges(draw(true), draw(false));
            }
}

/** A stamp lies on the pixels as the drawing does, and is drawn once for each way to lie there. */
TEST(CairoPainter, KeepsThePixelsOfStamps)
{
    const auto draw = [](UXPainter& painter, const UXDoubleRect& rect) {
        painter.setColor({30, 90, 200, 0.8});
        painter.addCircleArcPath(rect.x + 8, rect.y + 8, 7, 0, 360);
        painter.fill();
        painter.setColor({255, 255, 255});
        painter.setStartPoint(rect.x + 4, rect.y + 8);
        painter.addLinePath(rect.x + 12, rect.y + 5);
        painter.stroke();
    };
    for (const double scale : {1.0, 1.25, 2.0}) {
        int drawn = 0;
        const auto paint = [&](bool asStamp) {
            CairoTestCanvas canvas(80, 40, scale);
            canvas.drawWhiteGround().draw([&](UXPainter& painter) {
                painter.addRectanglePath(0, 0, 72, 40);
                painter.clip();
                for (const UXDoublePoint& at : {UXDoublePoint(4, 4), UXDoublePoint(24, 8),
                                                UXDoublePoint(44.5, 6), UXDoublePoint(64, 4)}) {
                    const UXDoubleRect rect(at.x, at.y, 16, 16);
                    if (asStamp)
                        painter.drawStamp("a mark of the test", rect, [&](UXPainter* stamp) {
                            ++drawn;
                            draw(*stamp, rect);
                        });
                    else
                        draw(painter, rect);
                }
            });
            return canvas.pixels();
        };
        const std::vector<std::uint32_t> first = paint(true), direct = paint(false);
        EXPECT_EQ(drawn, scale == 2 ? 1 : 2) << "whole places, and one between";
        EXPECT_EQ(paint(true), first);
        EXPECT_EQ(drawn, scale == 2 ? 1 : 2) << "none anew";
        int greatest = 0;
        for (std::size_t i = 0; i < first.size(); ++i)
            for (int shift = 0; shift < 32; shift += 8)
                greatest = std::max(greatest, std::abs(static_cast<int>(first[i] >> shift & 0xFF) -
                                                       static_cast<int>(direct[i] >> shift & 0xFF)));
        EXPECT_LE(greatest, 10) << "rounded once more, and Cairo cuts the last line at the clip";
    }
}
