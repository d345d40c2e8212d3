#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"

/** The least contrast at which small text can be read, as WCAG 2.1 has it for level AA. */
constexpr double uxReadableContrast = 4.5;

/** @return the contrast of color, as it looks on an opaque ground, with that ground: 1 for none to 21 for
 * black on white (WCAG 2.1, relative luminance) */
[[nodiscard]] UX_EXPORT double uxObtainContrast(const UXColor& color, const UXColor& ground);

/** @return color over an opaque ground, as an opaque colour */
[[nodiscard]] UX_EXPORT UXColor uxLayColorOver(const UXColor& color, const UXColor& ground);

/** @return color where it can be read on an opaque ground; otherwise an opaque one like it, as much darker or
 * lighter as that takes */
[[nodiscard]] UX_EXPORT UXColor uxMakeReadableColor(const UXColor& color, const UXColor& ground);
