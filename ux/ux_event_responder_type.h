#pragma once

#include "ux/ux_named_enum.h"

/** What an object may ask to do, or not to do, with an input event before the framework's own answer. */
UX_NAMED_ENUM(UXEventResponderType, Scroll, Zoom, Drag, Select, ContextMenu, Hint)
