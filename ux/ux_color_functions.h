#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"

// Colour models: hue from 0 to below 360 degrees (any angle is taken), the other parts from 0 to 1 (clamped;
// NaN is 0). A colour made from them is opaque. Every 8-bit colour comes back unchanged from either model.

[[nodiscard]] UX_EXPORT UXColor uxHSLToColor(double hue, double saturation, double lightness);
UX_EXPORT void uxColorToHSL(const UXColor& color, double& hue, double& saturation, double& lightness);

[[nodiscard]] UX_EXPORT UXColor uxHSVToColor(double hue, double saturation, double value);
UX_EXPORT void uxColorToHSV(const UXColor& color, double& hue, double& saturation, double& value);
