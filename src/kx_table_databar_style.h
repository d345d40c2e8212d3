#pragma once

#include "ux/ux_named_enum.h"

/** The direction of the bars in a table's cells. */
UX_NAMED_ENUM(KXTableDatabarStyle, None, LeftToRight, RightToLeft)
