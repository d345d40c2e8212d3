#pragma once

#include "kx_named_enum.h"

/** What a column header of a table stands for. */
KX_NAMED_ENUM(KXTableColumnHeaderInfoType, Normal, ValueHeader, SubTotal, SubTotalValueHeader)
