#pragma once

#include "kx_named_enum.h"

/** The side of a line's point on which its label stands. */
KX_NAMED_ENUM(KXLineLabelPosition, Left, Right, Top, Bottom)
