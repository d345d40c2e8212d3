#pragma once

/** A modifier key or mouse button that is down during an event; one bit each. */
enum class UXEventKey : int { Shift = 2, Ctrl = 4, Alt = 8, LeftButton = 16, RightButton = 32 };
