// What documents and hosts make the painting back end draw: any text in any font and room, and any steps.

#include "fuzz_drawing.h"
#include "fuzz_input.h"
#include "ux/cairo/ux_cairo.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

/** @return the text of the case again and again, so that what grows with its square shows */
std::string repeat(const std::string& text, std::size_t size)
{
    std::string repeated;
    while (!text.empty() && repeated.size() < size)
        repeated += text;
    return repeated;
}

void drawText(UXPainter& painter, FuzzInput& input)
{
    UXFont font;
    font.size = input.takeInt();
    font.bold = input.takeBool();
    font.italic = input.takeBool();
    if (input.takeBool())
        font.familyName = input.takeText();
    const auto option = static_cast<UXTextOption>(input.takeBelow(5));
    const auto align = static_cast<UXTextAlign>(input.takeBelow(4));
    const int lineMode = input.takeBelow(3);
    const double width = input.takeNumber();
    const std::size_t length = std::size_t{1} << input.takeBelow(15);
    const std::string text = repeat(input.takeText(), length);
    const UXDoubleSize size = uxMeasureText(text, font, option, lineMode, width);
    require(std::isfinite(size.width) && std::isfinite(size.height), "a text has a size");
    painter.drawText(text, {input.takeNumber(), input.takeNumber(), width, input.takeNumber()}, font, align,
                     option, lineMode);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    uxCairoInstall();
    FuzzInput input(bytes, std::min<std::size_t>(size, 1024));
    const double scale = input.takeBool() ? 1.25 : 2;
    UXCairoImagePaintConfig image({64, 64}, scale);
    UXPainter* painter = uxCreatePainter(&image);
    while (!input.isEmpty()) {
        if (input.takeBool())
            drawText(*painter, input);
        else
            drawAnything(*painter, input);
    }
    uxDestroyPainter(painter);
    return 0;
}
