#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"

/** @return black or white, whichever can be read better on background */
[[nodiscard]] KX_EXPORT UXColor kxObtainReadableColor(const UXColor& background);
