#pragma once

#include "ux/ux_named_enum.h"

/** The place of one panel of a table. */
UX_NAMED_ENUM(KXTablePanelType, Background, LeftTop, Top, RightTop, Left, Content, Right, LeftBottom, Bottom,
              RightBottom)

/** What a column header of a table stands for. */
UX_NAMED_ENUM(KXTableColumnHeaderInfoType, Normal, ValueHeader, SubTotal, SubTotalValueHeader)

/** The direction of the bars in a table's cells. */
UX_NAMED_ENUM(KXTableDatabarStyle, None, LeftToRight, RightToLeft)
