#pragma once

#include "ux/ux_named_enum.h"

/** What a legend or marker symbol looks like. */
UX_NAMED_ENUM(UXSymbolStyle, Rectangle, Circle, Line, LineLeft, LineRight, Area, AreaLeft, AreaRight,
              ThreeVerticalDots, AssistantLine, AssistantLineWithDash, AssistantLineWithDot)
