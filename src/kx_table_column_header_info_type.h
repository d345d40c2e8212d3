#pragma once

#include "ux/ux_named_enum.h"

/** What a column header of a table stands for. */
UX_NAMED_ENUM(KXTableColumnHeaderInfoType, Normal, ValueHeader, SubTotal, SubTotalValueHeader)
