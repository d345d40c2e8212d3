#pragma once

#include "ux/ux_color.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_property.h"

#include <string>

/** One row of a hint: a symbol in its colour, a label and a value; or a blank of a given height. */
struct UXHintRowInfo {
    UXColor color;
    UXSymbolStyle symbolStyle = UXSymbolStyle::Rectangle;
    std::string label;
    std::string value;
    UXTextProperty labelProperty;
    UXTextProperty valueProperty;
    bool showSymbol = false;
    int blankHeight = 0; /**< above 0 the row is that many logical units of free room and shows nothing */

    friend bool operator==(const UXHintRowInfo&, const UXHintRowInfo&) = default;
};
