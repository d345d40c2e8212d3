#pragma once

#include "ux/ux_named_enum.h"

/** The place of one panel of a table. */
UX_NAMED_ENUM(KXTablePanelType, Background, LeftTop, Top, RightTop, Left, Content, Right, LeftBottom, Bottom,
              RightBottom)
