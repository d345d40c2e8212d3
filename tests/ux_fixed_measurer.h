#pragma once

#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <string>

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
        std::size_t longest = 0, lines = 0;
        for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1, ++lines) {
            end = text.find('\n', start);
            longest = std::max(longest, std::min(end, text.size()) - start);
        }
        return {static_cast<double>(longest) * font.size / 2, static_cast<double>(lines) * font.size};
    }

    int askedCount = 0;
};
