#include "web_text_measurer.h"

#include "ux/ux_drawn_lines.h"
#include "ux/ux_text_bound.h"
#include "web_page.h"

#include <string>
#include <string_view>

UXDoubleSize WebTextMeasurer::measureText(const std::string& text, const UXFont& font, UXTextOption option,
                                          int lineMode, double widthLimit)
{
    if (text.empty() || font.size <= 0)
        return {};
    const std::string family(uxBoundFamilyName(font.familyName));
    const int style = (font.bold ? 1 : 0) + (font.italic ? 2 : 0);
    const auto widthOf = [&](std::string_view piece) {
        return piece.empty() ? 0 : webMeasureText(std::string(piece), family, font.size, style);
    };
    return uxMeasureTextLines(std::string(uxBoundDrawnText(text, font.size)), option, lineMode, widthLimit,
                              webObtainLineHeight(family, font.size, style), widthOf);
}
