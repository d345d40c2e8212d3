#pragma once

#include "ux/ux_named_enum.h"

/** The side of a line's point on which its label stands. */
UX_NAMED_ENUM(KXLineLabelPosition, Left, Right, Top, Bottom)
