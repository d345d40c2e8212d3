#pragma once

#include "ux/ux_text_measurer.h"

/** While it stands, every byte of a text is half its font size wide and every line as high as the font size,
 * so that a test can say what a layout has to be. It counts how often it is asked. */
class UXFixedMeasurer : public UXTextMeasurer {
public:
    UXFixedMeasurer() { uxSetTextMeasurer(this); }
    UXFixedMeasurer(const UXFixedMeasurer&) = delete;
    UXFixedMeasurer& operator=(const UXFixedMeasurer&) = delete;
    ~UXFixedMeasurer() override { uxSetTextMeasurer(nullptr); }

    UXDoubleSize measureText(const std::string& text, const UXFont& font, UXTextOption, int, double) override
    {
        ++askedCount;
        return {static_cast<double>(text.size()) * font.size / 2, static_cast<double>(font.size)};
    }

    int askedCount = 0;
};
