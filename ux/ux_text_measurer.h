#pragma once

#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_font.h"
#include "ux/ux_text_option.h"

#include <string>

struct UXTextProperty;

/** Knows how much room a text takes. Layout and painting ask the same one, so they agree. */
class UX_EXPORT UXTextMeasurer {
public:
    virtual ~UXTextMeasurer() = default;

    /**
     * @param text UTF-8; a line feed starts a new line in every line mode
     * @param lineMode 1 breaks lines at widthLimit, any other value does not
     * @param widthLimit in logical units; below 0 for none
     * @return width of the widest line and height of all lines, in logical units
     */
    virtual UXDoubleSize measureText(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode, double widthLimit) = 0;
};

/**
 * Makes measurer answer from now on and forgets what was measured before; call it again with the same one
 * when its answers have changed. Not owned: it has to live until it is replaced. Null restores the built-in
 * one.
 */
UX_EXPORT void uxSetTextMeasurer(UXTextMeasurer* measurer);

/**
 * Asks the measurer in use, or the bounded memory of its answers.
 * @return the size as measured; 0 x 0 for an empty text, and no part of it is ever negative or not finite
 */
[[nodiscard]] UX_EXPORT UXDoubleSize uxMeasureText(const std::string& text, const UXFont& font,
                                                   UXTextOption option, int lineMode, double widthLimit = -1);
/** The same as the text is drawn with property. */
[[nodiscard]] UX_EXPORT UXDoubleSize uxMeasureText(const std::string& text, const UXTextProperty& property,
                                                   double widthLimit = -1);
