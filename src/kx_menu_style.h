#pragma once

#include "ux/ux_color.h"

// The looks that strips and menus share. Texts and icons stand at 4.5:1 or more against their ground.
inline constexpr UXColor kxMenuGroundColor{255, 255, 255};
inline constexpr UXColor kxMenuBorderColor{214, 217, 223};
inline constexpr UXColor kxMenuTextColor{45, 49, 58};
inline constexpr UXColor kxMenuDisabledColor{112, 116, 124};
inline constexpr UXColor kxMenuIconColor{76, 82, 94};
inline constexpr UXColor kxMenuHoverColor{235, 239, 246};
inline constexpr UXColor kxMenuPressedColor{219, 226, 238};
inline constexpr UXColor kxMenuFocusColor{38, 103, 198};
inline constexpr double kxMenuIconExtent = 16; // logical units
inline constexpr double kxMenuHoverRadius = 4; // of the corners
