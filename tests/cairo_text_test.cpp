#include "cairo_test_canvas.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/cairo/ux_cairo_text_measurer.h"
#include "ux/ux_draw_text_result.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <malloc.h>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

UXTextProperty makeProperty(int size, UXTextAlign align = UXTextAlign::Left,
                            UXTextOption option = UXTextOption::Default, int lineMode = 2)
{
    UXFont font;
    font.size = size;
    return {font, align, option, lineMode, UXColor()};
}

UXDoubleSize measure(const std::string& text, const UXTextProperty& property, double widthLimit = -1)
{
    return UXCairoTextMeasurer().measureText(text, property.font, property.option, property.lineMode,
                                             widthLimit);
}

class CairoText : public testing::Test {
protected:
    void SetUp() override { uxCairoInstall(); }
    void TearDown() override { uxSetTextMeasurer(nullptr); }
};

} // namespace

TEST_F(CairoText, IsDrawnInsideWhatItMeasures)
{
    const char* texts[] = {"Hamburgefonstiv", "1,284,930.50", "中文标题", "two\nlines", "ÅÉg|y(", "W"};
    for (const double scale : {1.0, 1.25, 2.0}) {
        for (const int size : {9, 13, 24, 72}) {
            for (const char* text : texts) {
                SCOPED_TRACE(testing::Message() << text << " at " << size << " x " << scale);
                const UXDoubleSize measured = uxMeasureText(text, makeProperty(size).font, {}, 2);
                CairoTestCanvas canvas(700, 300, scale);
                UXDrawTextResult result;
                canvas.draw([&](UXPainter& painter) {
                    painter.drawText(text, {20, 30, measured.width, measured.height}, makeProperty(size),
                                     result);
                });
                EXPECT_TRUE(result.fits);
                EXPECT_EQ(result.textRect, UXDoubleRect(20, 30, measured.width, measured.height));
                // The ink may lean out of its advance by a side bearing and by the pixel that it is smoothed
                // over.
                const UXRect ink = canvas.inkBounds();
                const double reach = 1 + size * scale * 0.08;
                ASSERT_FALSE(uxIsEmptyRect(ink));
                EXPECT_GE(ink.x, 20 * scale - reach);
                EXPECT_GE(ink.y, 30 * scale - reach);
                EXPECT_LE(ink.x + ink.width, (20 + measured.width) * scale + reach);
                EXPECT_LE(ink.y + ink.height, (30 + measured.height) * scale + reach);
                EXPECT_GE(ink.width, (measured.width - size * 0.5) * scale);
            }
        }
    }
}

TEST_F(CairoText, LinesAreAsHighAsTheFontThatWasAskedFor)
{
    const double height = measure("Latin", makeProperty(13)).height;
    const char* texts[] = {"中文", "Latin 中文 ελ", "☃", "\xF0\x9F\x98\x80", " "};
    for (const char* text : texts)
        EXPECT_DOUBLE_EQ(measure(text, makeProperty(13)).height, height) << text;
    EXPECT_DOUBLE_EQ(measure("a\n中\nb", makeProperty(13)).height, 3 * height);
    EXPECT_DOUBLE_EQ(measure("a\n", makeProperty(13)).height, 2 * height);
}

TEST_F(CairoText, WrapsAndCutsAtItsLimit)
{
    const std::string text = "several words in a row";
    const UXTextProperty plain = makeProperty(14), wrapped = makeProperty(14, {}, {}, 1);
    const UXDoubleSize natural = measure(text, plain);
    struct Case {
        const char* name;
        UXTextProperty property;
        double limit;
        int lines;
    };
    const Case cases[] = {
        {"no limit", wrapped, -1, 1},
        {"its own width", wrapped, natural.width, 1},
        {"a little less", wrapped, natural.width - 1, 2},
        {"half", wrapped, natural.width * 0.7, 2},
        {"not wrapped", plain, 20, 1},
        {"cut at the end", makeProperty(14, {}, UXTextOption::EllipsisEnd), 80, 1},
        {"cut in the middle", makeProperty(14, {}, UXTextOption::EllipsisMiddle), 80, 1},
        {"cut at the start", makeProperty(14, {}, UXTextOption::EllipsisStart), 80, 1},
        {"not a number", wrapped, NAN, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UXDoubleSize size = measure(text, c.property, c.limit);
        EXPECT_NEAR(size.height / natural.height, c.lines, 1e-9);
        const bool isLimited = c.limit >= 0 &&
                               (c.property.lineMode == 1 || c.property.option != UXTextOption::Default);
        if (isLimited) {
            EXPECT_LE(size.width, c.limit + 1e-3);
        } else {
            EXPECT_EQ(size.width, natural.width);
        }
    }
    // A word longer than the limit is broken, and a limit of nothing still ends.
    EXPECT_GT(measure("Donaudampfschiff", wrapped, 40).height, natural.height * 1.5);
    EXPECT_GT(measure(text, wrapped, 0).height, natural.height * 5);
}

/** A sign of no width has a number shaped as any text is. */
TEST_F(CairoText, WritesNumbersAsTheyAreShaped)
{
    constexpr std::string_view letters = "0123456789,.-+ %";
    std::mt19937 random(1);
    const auto draw = [](const std::string& text, const UXTextProperty& property) {
        return CairoTestCanvas(330, 30)
            .draw([&](UXPainter& painter) {
                painter.drawText(text, {2, 2, 326, 26}, property);
            })
            .pixels();
    };
    for (const char* family : {"DejaVu Sans", "DejaVu Serif", "no such family"}) {
        UXTextProperty property = makeProperty(13);
        property.font.familyName = family;
        for (int i = 0; i < 600; ++i) {
            property.font.bold = i % 2 == 1;
            std::string text;
            for (std::size_t length = 1 + random() % 9; text.size() < length;)
                text.push_back(letters[random() % letters.size()]);
            SCOPED_TRACE(text);
            ASSERT_EQ(measure(text, property), measure(text + "\u200B", property));
            if (i % 8 < 2) {
                ASSERT_EQ(draw(text, property), draw(text + "\u200B", property));
            }
        }
    }
}

/** Where a clip is no rectangle Cairo draws what is written to the pixels elsewhere. */
TEST_F(CairoText, IsWrittenAsCairoDrawsIt)
{
    UXTextProperty property = makeProperty(15, UXTextAlign::Center);
    for (const UXColor& color : {UXColor(0, 0, 0), UXColor(210, 40, 90), UXColor(20, 90, 200, 0.4)}) {
        for (const double scale : {1.0, 1.5}) {
            property.textColor = color;
            const auto draw = [&](bool byCairo) {
                CairoTestCanvas canvas(160, 40, scale);
                canvas.drawWhiteGround().draw([&](UXPainter& painter) {
                    if (byCairo) {
                        painter.setStartPoint(-1000, -1000);
                        painter.addLinePath(3000, -1000);
                        painter.addLinePath(-1000, 3000);
                        painter.clip();
                    }
                    painter.drawText("Written 1,284.9", {3, 5, 150, 30}, property);
                    painter.drawText("cut by the edge of the picture", {0, 20, 160, 30}, property);
                });
                return canvas.pixels();
            };
            EXPECT_EQ(draw(false), draw(true));
        }
    }
}

TEST_F(CairoText, SurvivesAnyText)
{
    std::string marks = "a";
    for (int i = 0; i < 8000; ++i)
        marks += "\xCC\x81";
    std::string broken(5000, '\xCC');
    broken += 'x';
    const std::vector<std::string> texts{marks,
                                         std::string("\xFF\xC0\x80 broken"),
                                         std::string("zero\0inside", 11),
                                         std::string(1 << 20, 'W'),
                                         std::string(1 << 16, '\n'),
                                         "\r\n\t\x01\x7F",
                                         "\xE2\x80\xAE turned \xE2\x80\xAC",
                                         broken,
                                         "\xED\xA0\x80",
                                         "\xF4\x8F\xBF\xBF"};
    for (const int size : {-5, 0, 1, 12, 10000, (std::numeric_limits<int>::max)()}) {
        for (const std::string& text : texts) {
            for (const int lineMode : {1, 2}) {
                const UXTextProperty property = makeProperty(size, UXTextAlign::Right,
                                                             UXTextOption::EllipsisEnd, lineMode);
                const UXDoubleSize measured = measure(text, property, 50);
                EXPECT_TRUE(std::isfinite(measured.width) && measured.width >= 0);
                EXPECT_TRUE(std::isfinite(measured.height) && measured.height >= 0);
                EXPECT_EQ(size <= 0, measured.height == 0);
            }
        }
    }
    CairoTestCanvas(20, 20).draw([&](UXPainter& painter) {
        for (const std::string& text : texts)
            painter.drawText(text, {0, 0, 20, 20},
                             makeProperty(9, UXTextAlign::Center, UXTextOption::EllipsisMiddle, 1));
    });
}

TEST_F(CairoText, BoundsWhatTakesLongToShape)
{
    const UXTextProperty property = makeProperty(12);
    const auto measureMany = [&](const std::string& piece, int count) {
        std::string text;
        for (int i = 0; i < count; ++i)
            text += piece;
        return measure(text, property);
    };
    // Past the bounds tabs and blanks are left out, and the text ends at a line end or a turn of direction.
    for (const char* blank : {"\t", " ", "a\t", "\xE3\x80\x80"}) {
        const bool hasLetter = *blank == 'a';
        EXPECT_DOUBLE_EQ(measureMany(blank, 3000).width - measureMany(blank, 1500).width,
                         hasLetter ? measureMany("a", 1500).width : 0)
            << blank;
        EXPECT_GT(measureMany(blank, 200).width, measureMany(blank, 100).width * 1.9) << blank;
    }
    for (const char* lineEnd : {"\n", "a\n", "\r", "\xE2\x80\xA8"})
        EXPECT_EQ(measureMany(lineEnd, 2000).height, measureMany(lineEnd, 4000).height) << lineEnd;
    EXPECT_EQ(measureMany("a\xD7\x90", 2000).width, measureMany("a\xD7\x90", 4000).width);
    EXPECT_GT(measureMany("a\xD7\x90", 200).width, measureMany("a\xD7\x90", 100).width * 1.9);
}

TEST_F(CairoText, KeepsTextsInBoundedMemory)
{
    const auto measureHeap = [] {
        const struct mallinfo2 heap = mallinfo2();
        return heap.uordblks + heap.hblkhd;
    };
    const auto drawTexts = [](int count) {
        CairoTestCanvas(20, 20, 2).draw([count](UXPainter& painter) {
            for (int i = 0; i < count; ++i)
                painter.drawText("a text of some length, different from every other: " + std::to_string(i),
                                 {0, 0, 20, 20}, makeProperty(19));
        });
    };
    drawTexts(1); // fonts
    const std::size_t before = measureHeap();
    drawTexts(1500); // of 40 KB each
    EXPECT_LT(measureHeap() - before, std::size_t{24} << 20);
}

TEST_F(CairoText, SaysOnceThatNoFontHasIt)
{
    testing::internal::CaptureStderr();
    const std::string uncovered = "\xF3\xB0\x80\x80 private";
    measure(uncovered, makeProperty(12));
    measure(uncovered, makeProperty(17));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find(uncovered), std::string::npos) << said;
    EXPECT_EQ(said.find(uncovered), said.rfind(uncovered)) << said;
    EXPECT_GT(measure(uncovered, makeProperty(12)).width, measure(" private", makeProperty(12)).width);
}
