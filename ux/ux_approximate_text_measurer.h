#pragma once

#include "ux/ux_text_measurer.h"

/**
 * The measurer that is always there: a sans serif with figures of one width, told by classes of characters,
 * with no font on the machine looked at. Its answers are the same everywhere, and near enough to lay out by.
 */
class UX_EXPORT UXApproximateTextMeasurer final : public UXTextMeasurer {
public:
    UXDoubleSize measureText(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                             double widthLimit) override;
};
