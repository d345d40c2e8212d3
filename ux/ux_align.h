#pragma once

#include "ux/ux_named_enum.h"

/**
 * Where an object keeps itself in its parent's content rectangle. None leaves the rectangle alone, Center
 * keeps the size, Client fills the parent, and a side keeps the thickness across that side and takes its
 * whole length.
 */
UX_NAMED_ENUM(UXAlign, None, Center, Client, Left, Top, Right, Bottom)
