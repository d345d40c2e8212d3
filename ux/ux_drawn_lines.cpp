#include "ux/ux_drawn_lines.h"

#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <string_view>

std::vector<std::string> uxObtainDrawnLines(const std::string& text, const UXFont& font, UXTextOption option,
                                            int lineMode, double width)
{
    const auto widthOf = [&font](std::string_view piece) {
        return uxMeasureText(std::string(piece), font, UXTextOption::Default, 2).width;
    };
    const bool isWrapped = lineMode == 1;
    std::vector<std::string> lines;
    for (const std::string_view line : uxBreakTextLines(text, isWrapped ? width : -1, widthOf)) {
        const UXTextOption lineOption = isWrapped ? UXTextOption::Default : option;
        lines.push_back(uxShortenText(line, lineOption, width, widthOf));
    }
    return lines;
}

UXDoubleSize uxMeasureTextLines(const std::string& text, UXTextOption option, int lineMode, double widthLimit,
                                double lineHeight, const UXTextWidthFunction& widthOf)
{
    const bool isLimited = widthLimit >= 0;
    const bool isWrapped = lineMode == 1 && isLimited;
    const std::vector<std::string_view> lines = uxBreakTextLines(text, isWrapped ? widthLimit : -1, widthOf);
    double width = 0;
    for (const std::string_view line : lines)
        width = std::max(width, widthOf(line));
    if (isLimited && !isWrapped && option != UXTextOption::Default)
        width = std::min(width, widthLimit);
    return {width, static_cast<double>(lines.size()) * lineHeight};
}
