#pragma once

#include "ux/cairo/ux_cairo_export.h"
#include "ux/ux_text_measurer.h"

/**
 * Measures text as the Cairo painter draws it, on any machine alike: gray antialiasing, no hinting, no
 * rounding to pixels, one unit of font size one logical unit. The height is the number of lines times the
 * line height of the font that was asked for, whatever font a single glyph comes from. A font that is not
 * there is replaced by the family "Default".
 */
class UX_CAIRO_EXPORT UXCairoTextMeasurer : public UXTextMeasurer {
public:
    UXDoubleSize measureText(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                             double widthLimit) override;
};
