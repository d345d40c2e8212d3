#include "kx_readable_color.h"

#include "ux/ux_color_contrast.h"

namespace {

constexpr UXColor darkTextColor(38, 38, 38);
constexpr UXColor lightTextColor(255, 255, 255);

} // namespace

UXColor kxObtainReadableColor(const UXColor& background)
{
    // What is seen through a translucent colour is taken to be white, as the light text is.
    const UXColor ground = uxLayColorOver(background, lightTextColor);
    const bool isDark = uxObtainContrast(darkTextColor, ground) >= uxObtainContrast(lightTextColor, ground);
    return uxMakeReadableColor(isDark ? darkTextColor : lightTextColor, ground);
}
