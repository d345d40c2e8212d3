#pragma once

#include "ux/ux_text_measurer.h"

/** Has the page measure pieces of lines; wraps and shortens by itself. */
class WebTextMeasurer final : public UXTextMeasurer {
public:
    UXDoubleSize measureText(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                             double widthLimit) override;
};
