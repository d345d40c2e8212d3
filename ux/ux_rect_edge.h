#pragma once

#include "ux/ux_named_enum.h"

/** One edge of a rectangle, clockwise from the left. */
UX_NAMED_ENUM(UXRectEdge, Left, Top, Right, Bottom)
