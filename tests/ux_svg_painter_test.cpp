#include "svg_check.h"
#include "ux/ux_painter.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_svg_paint_config.h"
#include "ux_hostile_drawing.h"
#include "ux_odd_locale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <regex>
#include <sstream>

namespace {

using Draw = std::function<void(UXPainter&)>;

std::string paint(const Draw& draw, const UXSize& size = {100, 50})
{
    UXSvgPaintConfig config(size);
    UXPainter* painter = uxCreatePainter(&config);
    draw(*painter);
    uxDestroyPainter(painter);
    return config.getSvg();
}

/** The part between the tag of the page and its end. */
std::string paintContent(const Draw& draw)
{
    const std::string svg = paint(draw);
    const std::size_t start = svg.find('\n', svg.find("<svg")) + 1;
    return svg.substr(start, svg.rfind("</svg>") - start);
}

/** @return whether the document holds what is no number, an exponent of three digits or a number of twelve */
bool hasWildNumber(const std::string& xml)
{
    return std::regex_search(xml, std::regex("nan|inf|[0-9]e[+-][0-9]{3}|[0-9]{12}"));
}

} // namespace

TEST(UXSvgPainter, WritesWhatIsDrawn)
{
    struct Case {
        const char* name;
        std::string expected;
        Draw draw;
    };
    const Case cases[] = {
        {"filled rectangle, translucent",
         "<path d=\"M1 2H4.5V6H1Z\" fill=\"#ff0010\" fill-opacity=\"0.25\"/>\n",
         [](UXPainter& p) {
             p.setColor({300, -5, 16, 0.25}), p.addRectanglePath(1, 2, 3.5, 4), p.fill();
         }},
        {"what is not finite leaves things as they are",
         "<path d=\"M0 0L1 2\" fill=\"none\" stroke=\"#010203\" stroke-width=\"1\" stroke-dasharray=\"1 2\" "
         "stroke-dashoffset=\"3\"/>\n",
         [](UXPainter& p) {
             p.setColor({1, 2, 3}), p.setColor({0, 0, 0, NAN});
             p.setLineDash({1, 2}, 3), p.setLineDash({NAN}, 0), p.setLineDash({5}, INFINITY);
             p.beginLinearGradientPattern(0, 0, INFINITY, 0, UXSourceOperator::Pad);
             p.addGradientPatternColorStop({9, 9, 9}, 0), p.endPattern(), p.usePattern();
             p.addRectanglePath(0, 0, 5, 5), p.addLinePath(NAN, 1), p.fill();
             p.addLinePath(0, 0, 1, 2), p.stroke();
         }},
        {"the path is forgotten, or kept",
         "<path d=\"M0 0L1.235 2\" fill=\"none\" stroke=\"#000000\" stroke-width=\"1\"/>\n"
         "<path d=\"M0 0L1.235 2\" fill=\"#000000\" fill-rule=\"evenodd\"/>\n",
         [](UXPainter& p) {
             p.addLinePath(0, 0, 1.23456, 2), p.strokePreserve();
             p.setFillRule(UXFillRule::EvenOdd), p.fill(), p.fill();
         }},
        {"pen",
         "<path d=\"M0 0L2 4\" fill=\"none\" stroke=\"#000000\" stroke-width=\"3\" stroke-linecap=\"round\" "
         "stroke-linejoin=\"bevel\" stroke-dasharray=\"2 4\" stroke-dashoffset=\"6\" "
         "shape-rendering=\"crispEdges\" style=\"mix-blend-mode:multiply\"/>\n",
         [](UXPainter& p) {
             p.scale(2, 2), p.setLineWidth(1.5), p.setLineDash({1, 2}, 3);
             p.setLineCap(UXLineCapStyle::Round), p.setLineJoin(UXLineJoinStyle::Bevel);
             p.setAntialias(UXAntialiasStyle::None), p.setCompositionMode(UXCompositionMode::Multiply);
             p.addLinePath(0, 0, 1, 2), p.stroke();
         }},
        {"moved, relative and broken-off parts",
         "<path d=\"M3 1L5 5M22 20C4 4 8 8 12 12ZL0 0\" fill=\"#000000\"/>\n",
         [](UXPainter& p) {
             p.addRelativeLinePath(9, 9), p.setStartPoint(1, 1), p.scale(2, 2), p.addRelativeLinePath(1, 2);
             p.startNewSubPath(), p.addRelativeLinePath(9, 9), p.addLinePath(10, 10);
             p.addCubicCurvePath(1, 2, 3, 4, 5, 6), p.closePath(), p.translatePath(1, 0);
             p.addLinePath(0, 0), p.fill();
         }},
        {"state saved and restored, once too often", "<path d=\"M1 1H2\" fill=\"#000000\"/>\n",
         [](UXPainter& p) {
             p.saveState(), p.setColor({255, 0, 0}), p.translate(5, 5);
             p.restoreState(), p.restoreState(), p.restoreState();
             p.addLinePath(1, 1, 2, 1), p.fill();
         }},
        {"rectangles share a path unless they show through",
         "<path d=\"M0 0H2V2H0ZM1 1H2V2H1Z\" fill=\"#000000\"/>\n"
         "<path d=\"M0 0H2V2H0Z\" fill=\"#000000\" fill-opacity=\"0.5\"/>\n"
         "<path d=\"M1 1H2V2H1Z\" fill=\"#000000\" fill-opacity=\"0.5\"/>\n",
         [](UXPainter& p) {
             const std::vector<UXDoubleRect> rects{{0.2, 0, 2, 2}, {1, 1, 0, 2}, {1, 1, 0.1, 0.1}};
             p.drawRects(rects), p.setColor({0, 0, 0, 0.5}), p.drawRects(rects);
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(paintContent(c.draw), c.expected);
        EXPECT_TRUE(isWellFormed(paint(c.draw)));
    }
}

TEST(UXSvgPainter, TextIsTextAndAnyBytesAreWellFormed)
{
    struct Case {
        const char* name;
        std::string text, family, expectedText, expectedFamily;
    };
    const std::string defaultFamily = "Roboto, 'DejaVu Sans', 'WenQuanYi Micro Hei', sans-serif";
    const Case cases[] = {
        {"plain", "Total", "Default", ">Total<", defaultFamily},
        {"marked up", "<a b=\"1\"&amp;>", "Default", ">&lt;a b=&quot;1&quot;&amp;amp;&gt;<", defaultFamily},
        {"control characters", std::string("a\0b\x1b\tc", 6), "A\nB", ">a\uFFFDb\uFFFD c<",
         "'A B', sans-serif"},
        {"invalid UTF-8", "\xff\xc3(\xed\xa0\x80", "\xfe", ">\uFFFD\uFFFD(\uFFFD\uFFFD\uFFFD<",
         "'\uFFFD', sans-serif"},
        {"characters that XML forbids", "\xEF\xBF\xBE\xEF\xBF\xBF", "", ">\uFFFD\uFFFD<", defaultFamily},
        {"family that quotes", "x", "a'\"\\<", ">x<", "'a\\'&quot;\\\\&lt;', sans-serif"},
        {"blanks", " a  b ", "Default", " xml:space=\"preserve\"> a  b <", defaultFamily},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXFont font;
        font.familyName = c.family;
        const std::string svg = paint([&](UXPainter& p) {
            p.drawText(c.text, {0, 0, 50, 20}, font, UXTextAlign::Left, UXTextOption::Default, 2);
        });
        EXPECT_TRUE(isWellFormed(svg)) << svg;
        EXPECT_NE(svg.find(c.expectedText), std::string::npos) << svg;
        EXPECT_NE(svg.find("font-family=\"" + c.expectedFamily + '"'), std::string::npos) << svg;
    }
}

TEST(UXSvgPainter, TextsAreBoundedWhateverTheirWidth)
{
    std::string marks;
    while (marks.size() < std::size_t{1} << 20)
        marks += "\xCC\x81";
    UXFont font;
    font.familyName = std::string(1 << 20, 'f');
    for (const UXTextOption option : {UXTextOption::Default, UXTextOption::EllipsisEnd}) {
        for (const int lineMode : {1, 2}) {
            const std::string svg = paint([&](UXPainter& p) {
                p.drawText(marks, {0, 0, 50, 20}, font, UXTextAlign::Left, option, lineMode);
            });
            EXPECT_LT(svg.size(), 20000u);
            EXPECT_TRUE(isWellFormed(svg));
        }
    }
}

TEST(UXSvgPainter, HostileNumbersDrawSomethingSane)
{
    constexpr double limit = std::numeric_limits<double>::max();
    const double values[] = {NAN, INFINITY, -INFINITY, limit, -limit, 0, -1, 5e-324, 1e300};
    for (const double v : values) {
        for (const double other : {1.0, v}) {
            const Draw draw = [v, other](UXPainter& p) { uxDrawWithNumbers(p, v, other); };
            SCOPED_TRACE(testing::Message() << v << " " << other);
            const std::string svg = paint(draw);
            EXPECT_TRUE(isWellFormed(svg)) << svg;
            EXPECT_FALSE(hasWildNumber(svg));

            UXRecordingPainter first, second;
            draw(first);
            first.replay(second);
            EXPECT_TRUE(first.getText() == second.getText());
        }
    }
}

TEST(UXSvgPaintConfig, SameDrawingSameBytesInAnyLocale)
{
    const Draw draw = [](UXPainter& p) {
        p.addRectanglePath(1234.5, 0, 10000, 10), p.fill();
        p.drawText("a", {0, 0, 50, 20}, UXTextProperty{});
    };
    UXSvgPaintConfig config({1000, 500});
    UXPainter* painter = uxCreatePainter(&config);
    draw(*painter);
    uxDestroyPainter(painter);

    const std::string svg = config.getSvg();
    std::ostringstream out;
    const UXOddLocale locale;
    out.imbue(UXOddLocale::make());
    EXPECT_TRUE(config.write(out));
    EXPECT_EQ(out.str(), svg);
    EXPECT_EQ(paint(draw, {1000, 500}), svg);
    EXPECT_TRUE(svg.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg "
                                "xmlns=\"http://www.w3.org/2000/svg\" width=\"1000\" height=\"500\" "
                                "viewBox=\"0 0 1000 500\""));

    out.setstate(std::ios::badbit);
    EXPECT_FALSE(config.write(out));

    UXSvgPaintConfig withoutArea({0, 500});
    EXPECT_FALSE(withoutArea.isPaintConfigValid());
    EXPECT_EQ(uxCreatePainter(&withoutArea), nullptr);
}
