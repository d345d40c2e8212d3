#include "ux/ux_symbol.h"

#include "ux/ux_recording_painter.h"
#include "ux/ux_symbol_shape.h"
#include "ux_paint_to_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace {

constexpr int styleCount = static_cast<int>(UXSymbolStyle::AssistantLineWithDot) + 1;

TEST(UXSymbol, EveryStyleLooksDifferent)
{
    std::set<std::string> drawings;
    for (int i = 0; i < styleCount; ++i) {
        UXSymbol symbol;
        symbol.setRect(UXRect(0, 0, 17, 14));
        symbol.setSymbolStyle(static_cast<UXSymbolStyle>(i));
        const std::string drawing = uxPaintToText(symbol);
        EXPECT_TRUE(drawings.insert(drawing).second) << "style " << i << " looks like another:\n" << drawing;
    }
}

TEST(UXSymbol, AShapelessSymbolDrawsNothing)
{
    for (int i = 0; i < styleCount; ++i)
        for (const double width : {0.0, -1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
            UXRecordingPainter painter;
            uxDrawSymbol(painter, static_cast<UXSymbolStyle>(i), {0, 0, width, 10}, UXColor());
            EXPECT_EQ(painter.getText(), "");
        }
}

TEST(UXSymbol, TakesThePointerInsideItsShape)
{
    struct Case {
        const char* name;
        UXSymbolStyle style;
        UXPoint point;
        bool inside;
    };
    const Case cases[] = {
        {"a rectangle's corner", UXSymbolStyle::Rectangle, {0, 0}, true},
        {"outside", UXSymbolStyle::Rectangle, {20, 0}, false},
        {"a circle's middle", UXSymbolStyle::Circle, {10, 10}, true},
        {"beside the circle", UXSymbolStyle::Circle, {1, 1}, false},
        {"on the line", UXSymbolStyle::Line, {3, 10}, true},
        {"near the line", UXSymbolStyle::AssistantLineWithDash, {3, 12}, true},
        {"far from the line", UXSymbolStyle::LineLeft, {3, 16}, false},
    };
    for (const Case& c : cases) {
        UXSymbol symbol;
        symbol.setRect(UXRect(100, 100, 20, 20));
        symbol.setSymbolStyle(c.style);
        EXPECT_EQ(symbol.ptInShape(c.point), c.inside) << c.name;
    }
}

} // namespace
