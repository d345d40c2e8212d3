#pragma once

#include "kx_named_enum.h"

/** The direction of the bars in a table's cells. */
KX_NAMED_ENUM(KXTableDatabarStyle, None, LeftToRight, RightToLeft)
