#pragma once

/** Where a key leads to from a cell of a grid. */
enum class KXGridStep {
    Left,
    Right,
    Up,
    Down,
    PageUp,
    PageDown,
    RowStart,
    RowEnd,
    ColumnStart,
    ColumnEnd,
    First,
    Last
};
