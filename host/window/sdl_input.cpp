#include "sdl_input.h"

#include "ux/ux_cursor.h"
#include "ux/ux_key_code.h"
#include "view_control.h"

namespace {

struct KeyCode {
    SDL_Keycode key;
    int code;
};

constexpr KeyCode keyCodes[] = {
    {SDLK_BACKSPACE, static_cast<int>(UXKeyCode::Backspace)},
    {SDLK_TAB, static_cast<int>(UXKeyCode::Tab)},
    {SDLK_RETURN, static_cast<int>(UXKeyCode::Enter)},
    {SDLK_KP_ENTER, static_cast<int>(UXKeyCode::Enter)},
    {SDLK_ESCAPE, static_cast<int>(UXKeyCode::Escape)},
    {SDLK_SPACE, static_cast<int>(UXKeyCode::Space)},
    {SDLK_PAGEUP, static_cast<int>(UXKeyCode::PageUp)},
    {SDLK_PAGEDOWN, static_cast<int>(UXKeyCode::PageDown)},
    {SDLK_END, static_cast<int>(UXKeyCode::End)},
    {SDLK_HOME, static_cast<int>(UXKeyCode::Home)},
    {SDLK_LEFT, static_cast<int>(UXKeyCode::Left)},
    {SDLK_UP, static_cast<int>(UXKeyCode::Up)},
    {SDLK_RIGHT, static_cast<int>(UXKeyCode::Right)},
    {SDLK_DOWN, static_cast<int>(UXKeyCode::Down)},
    {SDLK_DELETE, static_cast<int>(UXKeyCode::Delete)},
    {SDLK_0, static_cast<int>(ViewKeyCode::Digit0)},
    {SDLK_KP_0, static_cast<int>(ViewKeyCode::Digit0)},
    {SDLK_q, static_cast<int>(ViewKeyCode::Q)},
    {SDLK_s, static_cast<int>(ViewKeyCode::S)},
    {SDLK_t, static_cast<int>(ViewKeyCode::T)},
    {SDLK_APPLICATION, static_cast<int>(ViewKeyCode::ContextMenu)},
    {SDLK_MENU, static_cast<int>(ViewKeyCode::ContextMenu)},
    {SDLK_F10, static_cast<int>(ViewKeyCode::F10)},
    {SDLK_F12, static_cast<int>(ViewKeyCode::F12)},
    {SDLK_PLUS, static_cast<int>(ViewKeyCode::Plus)},
    {SDLK_EQUALS, static_cast<int>(ViewKeyCode::Plus)},
    {SDLK_KP_PLUS, static_cast<int>(ViewKeyCode::Plus)},
    {SDLK_MINUS, static_cast<int>(ViewKeyCode::Minus)},
    {SDLK_KP_MINUS, static_cast<int>(ViewKeyCode::Minus)},
};

} // namespace

int obtainKeyCode(SDL_Keycode key)
{
    for (const auto& [known, code] : keyCodes) {
        if (known == key)
            return code;
    }
    // Above all codes that mean something: an unshifted letter must not pass for an arrow key.
    return 0x1000000 | (key & 0xffffff);
}

UXEvent makeInputEvent(UXEventType type, int modifiers, Uint32 buttons)
{
    UXEvent event(type);
    const auto add = [&event](bool isDown, UXEventKey key) {
        if (isDown)
            event.addEventKey(key);
    };
    add((modifiers & KMOD_SHIFT) != 0, UXEventKey::Shift);
    add((modifiers & KMOD_CTRL) != 0, UXEventKey::Ctrl);
    add((modifiers & KMOD_ALT) != 0, UXEventKey::Alt);
    add((buttons & SDL_BUTTON_LMASK) != 0, UXEventKey::LeftButton);
    add((buttons & SDL_BUTTON_RMASK) != 0, UXEventKey::RightButton);
    return event;
}

SDL_SystemCursor obtainSystemCursor(int cursor)
{
    switch (static_cast<UXCursor>(cursor)) {
    case UXCursor::PointingHand:
        return SDL_SYSTEM_CURSOR_HAND;
    case UXCursor::Text:
        return SDL_SYSTEM_CURSOR_IBEAM;
    case UXCursor::Move:
        return SDL_SYSTEM_CURSOR_SIZEALL;
    case UXCursor::ResizeHorizontally:
        return SDL_SYSTEM_CURSOR_SIZEWE;
    case UXCursor::ResizeVertically:
        return SDL_SYSTEM_CURSOR_SIZENS;
    case UXCursor::NotAllowed:
        return SDL_SYSTEM_CURSOR_NO;
    case UXCursor::Wait:
        return SDL_SYSTEM_CURSOR_WAIT;
    case UXCursor::AsParent:
    case UXCursor::Arrow:
        break;
    }
    return SDL_SYSTEM_CURSOR_ARROW;
}
