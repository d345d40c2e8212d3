#pragma once

/** The codes of the keys that the framework itself answers, as an event carries them. A host translates its
 * system's codes into these and is free in all others. */
enum class UXKeyCode : int {
    Backspace = 8,
    Tab = 9,
    Enter = 13,
    Escape = 27,
    Space = 32,
    PageUp = 33,
    PageDown = 34,
    End = 35,
    Home = 36,
    Left = 37,
    Up = 38,
    Right = 39,
    Down = 40,
    Delete = 46
};
