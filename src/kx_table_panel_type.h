#pragma once

#include "kx_named_enum.h"

/** The place of one panel of a table. */
KX_NAMED_ENUM(KXTablePanelType, Background, LeftTop, Top, RightTop, Left, Content, Right, LeftBottom, Bottom,
              RightBottom)
