#pragma once

#include "ux/ux_named_enum.h"

/** What happened. The order up to KeyUp is the order of an object's event filters and handlers. */
UX_NAMED_ENUM(UXEventType, MouseDown, MouseMove, MouseUp, MouseEnter, MouseLeave, MouseWheel,
              MouseDoubleClick, MouseDragging, MouseDrop, MouseDragEnter, MouseDragOver, MouseDragLeave,
              KeyDown, KeyUp, LeftClick, RightClick)
