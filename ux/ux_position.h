#pragma once

#include "ux/ux_named_enum.h"

/** A place at a rectangle's sides, corners or centre. */
UX_NAMED_ENUM(UXPosition, Top, Bottom, Left, Right, Center, TopRight, BottomRight)
