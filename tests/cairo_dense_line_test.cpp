// Lines and areas of more values than pixels, drawn merged and drawn in full.

#include "cairo_test_canvas.h"
#include "kx_hard_lines.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

constexpr int width = 120, height = 150;

KXAxisChartPlotFrame makeFrame(std::size_t count)
{
    KXAxisChartPlotFrame frame = kxMakeLineFrame(width, count);
    frame.area.height = height;
    frame.values = {0, height, -height / 1000.0};
    return frame;
}

std::vector<std::uint32_t> draw(const KXLineLayout& layout, double lineWidth)
{
    CairoTestCanvas canvas(width, height);
    canvas.drawWhiteGround().draw([&](UXPainter& painter) {
        painter.setColor({30, 60, 200});
        painter.setLineWidth(lineWidth);
        painter.setLineCap(UXLineCapStyle::Round);
        painter.setLineJoin(UXLineJoinStyle::Round);
        const KXLineShape& shape = layout.shapes[0];
        shape.fills.empty() ? painter.drawPolyline(shape.line.points) : painter.drawPolygons(shape.fills);
    });
    return canvas.pixels();
}

int obtainPart(std::uint32_t pixel, int shift) { return static_cast<int>(pixel >> shift & 255); }

/** @return how far the pixels of one picture are at most from the range of those around the same place in the
 * other one: 0 where no edge has moved by more than a pixel */
int findGreatestMove(const std::vector<std::uint32_t>& from, const std::vector<std::uint32_t>& to)
{
    int greatest = 0;
    for (int y = 1; y + 1 < height; ++y)
        for (int x = 1; x + 1 < width; ++x)
            for (const int shift : {0, 8, 16}) {
                int low = 255, high = 0;
                for (int i = 0; i < 9; ++i) {
                    const int near = obtainPart(
                        to[static_cast<std::size_t>((y + i / 3 - 1) * width + x + i % 3 - 1)], shift);
                    low = std::min(low, near);
                    high = std::max(high, near);
                }
                const int part = obtainPart(from[static_cast<std::size_t>(y * width + x)], shift);
                greatest = std::max({greatest, low - part, part - high});
            }
    return greatest;
}

} // namespace

TEST(CairoDenseLine, LooksAsIfEachOfItsPointsWereDrawn)
{
    // Of 255. A lost spike or a gap drawn over would be all of these; what is left is how densely a column is
    // covered between its extremes, which thin lines and areas of noise show most.
    constexpr int bound = 184;
    std::mt19937 random(4);
    int greatest = 0;
    for (int i = 0; i < 200; ++i) {
        const std::vector<double> values = kxMakeHardValues(random, 2 * width + random() % 1500);
        const KXLineForm form{.connectsOverNulls = random() % 2 == 0, .isFilled = random() % 3 == 0};
        const KXLineLayout dense = kxLayOutLine(values, makeFrame(values.size()), form);
        ASSERT_TRUE(dense.isDense);
        // The same places on a device that has room for each.
        KXAxisChartPlotFrame wide = makeFrame(values.size());
        wide.pixelScale = 100;
        const KXLineLayout full = kxLayOutLine(values, wide, form);
        ASSERT_FALSE(full.isDense);
        const double lineWidth = 1 + double(random() % 3);
        const auto merged = draw(dense, lineWidth), whole = draw(full, lineWidth);
        const int move = std::max(findGreatestMove(merged, whole), findGreatestMove(whole, merged));
        EXPECT_LE(move, bound) << i << (form.isFilled ? " filled" : "");
        greatest = std::max(greatest, move);
    }
    RecordProperty("greatest", greatest);
    std::cout << "greatest " << greatest << " of 255\n";
}
