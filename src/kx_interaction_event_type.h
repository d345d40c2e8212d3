#pragma once

/** The pointer events that a chart's interactions answer. */
enum class KXInteractionEventType : int {
    LeftClick,
    RightClick,
    DoubleClick,
    MouseEnter,
    MouseLeave,
    MouseMove
};
