#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"

class UXPainter;

/** The small pictures that strips and menus can show. */
enum class KXMenuIcon {
    None,
    Menu,
    More,
    Filter,
    Sort,
    Export,
    Expand,
    Refresh,
    Settings,
    Table,
    Chart,
    Check,
    SubMenu,
    Close
};

/** Draws an icon as paths into the largest square in the middle of bounds. Upright and level lines stand on
 * whole device pixels. Empty or non-finite bounds draw nothing. */
KX_EXPORT void kxDrawMenuIcon(UXPainter& painter, KXMenuIcon icon, const UXDoubleRect& bounds,
                              const UXColor& color);
