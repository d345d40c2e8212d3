#pragma once

#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"

/** How a text is set. */
struct UXTextProperty {
    UXFont font;
    UXTextAlign align = UXTextAlign::Left;
    UXTextOption option = UXTextOption::Default;
    int lineMode = 2; /**< 1 wraps the text at the width that it is given, any other value does not */
    UXColor textColor;

    friend bool operator==(const UXTextProperty&, const UXTextProperty&) = default;
};
