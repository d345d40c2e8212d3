#include "cairo_test_canvas.h"
#include "ux/ux_painter_state.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <span>
#include <string>
#include <vector>

namespace {

using Points = std::vector<UXDoublePoint>;
constexpr int width = 40, height = 24;

const Points triangle{{0, -5}, {4, 3}, {-4, 3}};

/** Discs of a radius, or polygons where that is 0. */
struct Marks {
    double radius;
    UXColor color;
    Points centres;

    void draw(UXPainter& painter, std::span<const UXDoublePoint> some) const
    {
        painter.setColor(color);
        if (radius > 0)
            painter.drawMarks(some, radius);
        else
            painter.drawShapes(some, triangle);
    }
};

double part(std::uint32_t pixel, int shift) { return pixel >> shift & 0xFF; }

/** What marks make of a white ground without rounding, four bytes a pixel. */
struct Composed {
    std::vector<double> layers; // one after the other
    std::vector<double> shape;  // of opaque ones, where each pixel has the greatest part that any covers
};

Composed compose(const Marks& marks, double scale)
{
    const auto count = static_cast<std::size_t>(width * height * 4 * scale * scale);
    Composed composed{std::vector<double>(count, 255), std::vector<double>(count, 255)};
    std::vector<double> greatest(count / 4);
    for (const UXDoublePoint& centre : marks.centres) {
        CairoTestCanvas canvas(width, height, scale);
        Marks white = marks; // its alpha is what the mark covers
        white.color = {255, 255, 255};
        canvas.draw([&](UXPainter& painter) { white.draw(painter, {&centre, 1}); });
        const std::vector<std::uint32_t> pixels = canvas.pixels();
        const int parts[] = {marks.color.red, marks.color.green, marks.color.blue, 255};
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const double covered = part(pixels[i], 24) / 255 * marks.color.alpha;
            greatest[i] = std::max(greatest[i], covered);
            for (std::size_t channel = 0; channel < 4; ++channel) {
                double& layer = composed.layers[4 * i + channel];
                layer += (parts[channel] - layer) * covered;
                composed.shape[4 * i + channel] = 255 + (parts[channel] - 255) * greatest[i];
            }
        }
    }
    if (marks.color.alpha < 1)
        composed.shape = composed.layers;
    return composed;
}

} // namespace

/** Where the soft edges of opaque ones meet, many may be drawn as one shape. */
TEST(CairoMarkStamps, ManyMarksAreThoseDrawnOneByOne)
{
    std::mt19937 random(11);
    const auto place = [&random](int extent) {
        return static_cast<double>(random() % static_cast<unsigned>(extent * 64 + 640)) / 64 - 5;
    };
    for (const double scale : {1.0, 1.5})
        for (const double alpha : {1.0, 0.6, 0.05})
            for (const double radius : {0.3, 2.5, 6.0, 0.0})
                for (const int count : {7, 150}) {
                    SCOPED_TRACE(std::to_string(scale) + " " + std::to_string(alpha) + " " +
                                 std::to_string(radius) + " " + std::to_string(count));
                    Marks marks{radius, {200, 40, 90, alpha}, {}};
                    for (int i = 0; i < count; ++i)
                        marks.centres.emplace_back(place(width), place(height));
                    marks.centres.emplace_back(NAN, 3);
                    CairoTestCanvas canvas(width, height, scale);
                    canvas.drawWhiteGround().draw(
                        [&](UXPainter& painter) { marks.draw(painter, marks.centres); });
                    marks.centres.pop_back();
                    const std::vector<std::uint32_t> pixels = canvas.pixels();
                    const auto [layers, shape] = compose(marks, scale);
                    double greatest = 0;
                    for (std::size_t i = 0; i < pixels.size(); ++i)
                        for (const auto& [channel, shift] : {std::pair(0, 16), {1, 8}, {2, 0}, {3, 24}}) {
                            const std::size_t at = 4 * i + static_cast<std::size_t>(channel);
                            const double one = std::round(layers[at]), all = std::round(shape[at]);
                            const double own = part(pixels[i], shift);
                            greatest = std::max(
                                {greatest, std::min(one, all) - own, own - std::max(one, all)});
                        }
                    EXPECT_LE(greatest, 1.0);
                }
}

TEST(CairoMarkStamps, AreClippedAndAsLargeAsCairoDrawsThem)
{
    // A mark too large for a stamp is drawn by Cairo; one that just has one covers as much.
    const auto measure = [](double radius) {
        CairoTestCanvas canvas(width, height);
        const UXDoublePoint centre(20.37, 11.81);
        canvas.draw([&](UXPainter& painter) {
            painter.setColor({0, 0, 0});
            painter.drawMarks({&centre, 1}, radius);
        });
        double covered = 0;
        for (const std::uint32_t pixel : canvas.pixels())
            covered += part(pixel, 24) / 255;
        return covered;
    };
    for (const double radius : {1.0, 4.0, 10.0})
        EXPECT_NEAR(measure(radius), 3.14159265 * radius * radius, 0.02 * radius * radius + 0.15);

    CairoTestCanvas canvas(width, height);
    canvas.draw([](UXPainter& painter) {
        painter.addRectanglePath(10, 5, 8, 6);
        painter.clip();
        painter.setColor({0, 0, 0});
        painter.drawMarks(Points(50, {14, 5}), 9);
    });
    EXPECT_EQ(canvas.inkBounds(), UXRect(10, 5, 8, 6));
}
