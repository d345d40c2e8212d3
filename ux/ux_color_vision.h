#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"

/** How eyes see colours: with all three kinds of cones, or without those for long, middle or short waves. */
enum class UXColorVision : int { Normal, Protanopia, Deuteranopia, Tritanopia };

/** A colour as CIE 1976 L*a*b* under the standard light D65: lightness 0 to 100, red over green, yellow over
 * blue. */
struct UXLabColor {
    double lightness = 0, a = 0, b = 0;

    friend constexpr bool operator==(const UXLabColor&, const UXLabColor&) = default;
};

/** @return an opaque colour as it looks to such eyes (Machado, Oliveira, Fernandes, "A Physiologically-based
 * Model for Simulation of Color Vision Deficiency", 2009, the matrices of severity 1, on linear light) */
[[nodiscard]] UX_EXPORT UXColor uxObtainSeenColor(const UXColor& color, UXColorVision vision);

/** @return an opaque colour of sRGB in L*a*b* */
[[nodiscard]] UX_EXPORT UXLabColor uxColorToLab(const UXColor& color);

/** @return how different two colours look, about 1 for what can just be told apart: CIEDE2000 with all
 * weights 1, worked out as Sharma, Wu and Dalal do it ("The CIEDE2000 Color-Difference Formula", 2005) */
[[nodiscard]] UX_EXPORT double uxObtainColorDifference(const UXLabColor& color, const UXLabColor& other);

/** The same of two opaque colours as such eyes see them. */
[[nodiscard]] UX_EXPORT double uxObtainColorDifference(const UXColor& color, const UXColor& other,
                                                       UXColorVision vision = UXColorVision::Normal);
