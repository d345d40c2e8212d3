#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"

/** @return the dark or the light colour of texts, whichever can be read better on background; darker or
 * lighter than that where neither can be read well */
[[nodiscard]] KX_EXPORT UXColor kxObtainReadableColor(const UXColor& background);
