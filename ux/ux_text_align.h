#pragma once

#include "ux/ux_named_enum.h"

/** Where the lines of a text stand between the left and the right of their rectangle. */
UX_NAMED_ENUM(UXTextAlign, Left, Center, Right)
