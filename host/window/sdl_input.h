#pragma once

#include "ux/ux_event.h"

#include <SDL.h>

// SDL's input in the framework's terms.

/** @return the framework's code of a key, or the view's; other keys have codes that no such one has */
int obtainKeyCode(SDL_Keycode key);

/** @param modifiers SDL_Keymod, the modifier keys that are down
 *  @param buttons the mask of the mouse buttons that are down, or went up just now */
UXEvent makeInputEvent(UXEventType type, int modifiers, Uint32 buttons);

/** @return the system cursor that stands for a cursor's number */
SDL_SystemCursor obtainSystemCursor(int cursor);
