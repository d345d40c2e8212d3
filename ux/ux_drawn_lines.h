#pragma once

#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_font.h"
#include "ux/ux_text_lines.h"
#include "ux/ux_text_option.h"

#include <string>
#include <vector>

// For measurers and painters that have no text library of their own behind them.

/** @return the lines of a text as they are drawn in a rectangle of that width, wrapped where lineMode is 1,
 * otherwise shortened as option says; widths are those of the text measurer */
[[nodiscard]] UX_EXPORT std::vector<std::string> uxObtainDrawnLines(const std::string& text,
                                                                    const UXFont& font, UXTextOption option,
                                                                    int lineMode, double width);

/**
 * What a text measurer answers, made of the widths of pieces of a line.
 * @param widthLimit below 0 for none
 * @param lineHeight in logical units
 * @return width of the widest line and height of all lines
 */
[[nodiscard]] UX_EXPORT UXDoubleSize uxMeasureTextLines(const std::string& text, UXTextOption option,
                                                        int lineMode, double widthLimit, double lineHeight,
                                                        const UXTextWidthFunction& widthOf);
