#include "view_window.h"

#include "host_error.h"
#include "sdl_input.h"
#include "ux/ux_clipboard.h"
#include "ux/ux_rect_functions.h"

#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>

namespace {

/** How long the window sleeps at most between two looks at its timers. */
constexpr int tickMilliseconds = 15;
constexpr UXSize leastSize{200, 140}; // logical units

volatile std::sig_atomic_t dumpRequested = 0;

void requestDump(int) { dumpRequested = 1; }

HostError makeError(const char* cause) { return {"the window", cause, SDL_GetError()}; }

SDL_Rect toSdlRect(const UXRect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

} // namespace

ViewWindow::Library::Library()
{
    if (SDL_Init(SDL_INIT_VIDEO) != 0)
        throw makeError("display");
    // Without a display SDL draws where nobody sees it, which is for those only who ask for it.
    const std::string driver = SDL_GetCurrentVideoDriver();
    if ((driver == "offscreen" || driver == "dummy") && !SDL_getenv("SDL_VIDEODRIVER")) {
        SDL_Quit();
        throw HostError("the window", "display", "there is none");
    }
    SDL_EnableScreenSaver();
    uxSetClipboard(
        [] {
            const std::unique_ptr<char, decltype(&SDL_free)> text(SDL_GetClipboardText(), &SDL_free);
            return text ? std::string(text.get()) : std::string();
        },
        [](const std::string& text) { SDL_SetClipboardText(text.c_str()); });
}

ViewWindow::Library::~Library()
{
    uxSetClipboard({}, {});
    SDL_Quit();
}

ViewWindow::ViewWindow(ViewBoard& board, const ViewWindowSetting& setting)
    : m_setting(setting), m_window(nullptr, &SDL_DestroyWindow), m_control(board)
{
    const double scale = setting.scale.value_or(1);
    const auto toWindow = [scale](int units) { return uxRoundToInt(units * scale); };
    m_window.reset(SDL_CreateWindow(setting.title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                                    toWindow(setting.size.width), toWindow(setting.size.height),
                                    SDL_WINDOW_HIDDEN | SDL_WINDOW_RESIZABLE | SDL_WINDOW_ALLOW_HIGHDPI));
    if (!m_window)
        throw makeError("window");
    SDL_SetWindowMinimumSize(m_window.get(), toWindow(leastSize.width), toWindow(leastSize.height));
    m_control.setReduceMotion(setting.reducesMotion);
    _takeSize();
}

ViewWindow::~ViewWindow() = default;

void ViewWindow::setTitle(const std::string& title) { SDL_SetWindowTitle(m_window.get(), title.c_str()); }

void ViewWindow::copyToClipboard(const std::string& text) { SDL_SetClipboardText(text.c_str()); }

void ViewWindow::run()
{
    if (!m_setting.dump.empty())
        std::signal(SIGUSR1, requestDump);
    SDL_ShowWindow(m_window.get());
    while (m_isOpen) {
        SDL_Event event;
        if (SDL_WaitEventTimeout(&event, tickMilliseconds) != 0) {
            do
                _handle(event);
            while (m_isOpen && SDL_PollEvent(&event) != 0);
        }
        m_control.timer(static_cast<std::int64_t>(SDL_GetTicks64()));
        _paint();
        _showCursor();
        if (std::exchange(dumpRequested, 0) != 0)
            _dump();
    }
    // SDL wakes itself by messages to the window. Those under way have to arrive before the window goes.
    SDL_HideWindow(m_window.get());
    for (SDL_Event rest; SDL_WaitEventTimeout(&rest, tickMilliseconds) != 0;) {}
}

double ViewWindow::_obtainPixelRatio() const
{
    int units = 0, pixels = 0;
    SDL_GetWindowSize(m_window.get(), &units, nullptr);
    SDL_GetWindowSizeInPixels(m_window.get(), &pixels, nullptr);
    return units > 0 && pixels > 0 ? static_cast<double>(pixels) / units : 1;
}

void ViewWindow::_takeSize()
{
    UXSize pixels;
    SDL_GetWindowSizeInPixels(m_window.get(), &pixels.width, &pixels.height);
    const double scale = m_setting.scale.value_or(_obtainPixelRatio());
    if (pixels != m_control.getPicture().getPixelSize() || scale != m_control.getScalingFactor())
        m_control.resize(pixels, scale);
}

UXControlPoint ViewWindow::_toPixel(int x, int y) const
{
    const double ratio = _obtainPixelRatio();
    return {uxSaturateToInt(std::floor((x + 0.5) * ratio)), uxSaturateToInt(std::floor((y + 0.5) * ratio))};
}

void ViewWindow::_handle(const SDL_Event& event)
{
    switch (event.type) {
    case SDL_QUIT:
        m_isOpen = false;
        break;
    case SDL_WINDOWEVENT:
        _handleWindow(event.window);
        break;
    case SDL_MOUSEMOTION:
        m_pointer = _toPixel(event.motion.x, event.motion.y);
        m_control.mouseMove(m_pointer,
                            makeInputEvent(UXEventType::MouseMove, SDL_GetModState(), event.motion.state));
        break;
    case SDL_MOUSEBUTTONDOWN:
    case SDL_MOUSEBUTTONUP:
        _handleButton(event.button);
        break;
    case SDL_MOUSEWHEEL:
        _handleWheel(event.wheel);
        break;
    case SDL_KEYDOWN:
    case SDL_KEYUP:
        _handleKey(event.key);
        break;
    case SDL_TEXTINPUT: {
        UXEvent typed(UXEventType::KeyDown);
        typed.setKeyText(event.text.text);
        m_control.keyDown(typed);
        break;
    }
    case SDL_TEXTEDITING:
        m_control.compose(event.edit.text, event.edit.start);
        break;
    default:
        break;
    }
}

void ViewWindow::_handleWindow(const SDL_WindowEvent& event)
{
    switch (event.event) {
    case SDL_WINDOWEVENT_SIZE_CHANGED:
    case SDL_WINDOWEVENT_DISPLAY_CHANGED:
        _takeSize();
        break;
    case SDL_WINDOWEVENT_EXPOSED:
        m_isExposed = true;
        break;
    case SDL_WINDOWEVENT_LEAVE:
        m_control.mouseLeave(m_pointer, makeInputEvent(UXEventType::MouseLeave, SDL_GetModState(), 0));
        break;
    default:
        break;
    }
}

void ViewWindow::_handleButton(const SDL_MouseButtonEvent& button)
{
    if (button.button != SDL_BUTTON_LEFT && button.button != SDL_BUTTON_RIGHT)
        return;
    const bool goesDown = button.type == SDL_MOUSEBUTTONDOWN;
    const Uint32 mask = SDL_BUTTON(static_cast<Uint32>(button.button));
    UXEvent event = makeInputEvent(goesDown ? UXEventType::MouseDown : UXEventType::MouseUp,
                                   SDL_GetModState(), mask);
    event.setClickCount(button.clicks);
    m_pointer = _toPixel(button.x, button.y);
    if (!goesDown) {
        m_control.mouseUp(m_pointer, event);
        return;
    }
    m_control.press(m_pointer, event);
    if (button.clicks % 2 == 0 && button.button == SDL_BUTTON_LEFT)
        m_control.mouseDoubleClick(m_pointer, event);
}

void ViewWindow::_handleWheel(const SDL_MouseWheelEvent& wheel)
{
    UXEvent event = makeInputEvent(UXEventType::MouseWheel, SDL_GetModState(), 0);
    const double sign = wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -1 : 1;
    event.setWheelDelta({wheel.preciseX * sign, -wheel.preciseY * sign});
    m_control.turnWheel(m_pointer, event);
}

void ViewWindow::_handleKey(const SDL_KeyboardEvent& key)
{
    const bool goesDown = key.type == SDL_KEYDOWN;
    UXEvent event = makeInputEvent(goesDown ? UXEventType::KeyDown : UXEventType::KeyUp, key.keysym.mod, 0);
    event.setKeyCode(obtainKeyCode(key.keysym.sym));
    // A letter with Ctrl types nothing and comes with its event, as commands do.
    if (event.containsEventKey(UXEventKey::Ctrl) && key.keysym.sym >= SDLK_a && key.keysym.sym <= SDLK_z)
        event.setKeyText(std::string(1, static_cast<char>(key.keysym.sym)));
    if (!goesDown)
        m_control.keyUp(event);
    else if (event.getKeyCode() == static_cast<int>(ViewKeyCode::Q) &&
             event.containsEventKey(UXEventKey::Ctrl))
        m_isOpen = false;
    else if (m_save && event.getKeyCode() == static_cast<int>(ViewKeyCode::S) &&
             event.containsEventKey(UXEventKey::Ctrl))
        m_save();
    else if (event.getKeyCode() == static_cast<int>(ViewKeyCode::F12))
        dumpRequested = 1;
    else
        m_control.pressKey(event);
}

void ViewWindow::_paint()
{
    std::vector<UXRect> areas = m_control.paintDirtyAreas();
    if (m_setting.logsPaints) {
        for (const UXRect& area : areas)
            std::printf("paint %d,%d %dx%d\n", area.x, area.y, area.width, area.height);
        std::fflush(stdout);
    }
    if (std::exchange(m_isExposed, false)) {
        const UXSize size = m_control.getPicture().getPixelSize();
        areas = {UXRect(0, 0, size.width, size.height)};
    }
    if (!areas.empty())
        _copyToScreen(areas);
}

void ViewWindow::_copyToScreen(const std::vector<UXRect>& areas)
{
    const UXCairoImagePaintConfig& picture = m_control.getPicture();
    const UXSize size = picture.getPixelSize();
    if (!picture.isPaintConfigValid())
        return;
    SDL_Surface* screen = SDL_GetWindowSurface(m_window.get());
    // SDL only reads from the pixels, though it cannot say so.
    const std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> pixels(
        SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint32_t*>(picture.getPixels()), size.width,
                                           size.height, 32, picture.getRowLength() * 4,
                                           SDL_PIXELFORMAT_ARGB8888),
        &SDL_FreeSurface);
    if (!screen || !pixels)
        return;
    SDL_SetSurfaceBlendMode(pixels.get(), SDL_BLENDMODE_NONE);
    std::vector<SDL_Rect> copied;
    for (const UXRect& area : areas) {
        const SDL_Rect from = toSdlRect(area);
        SDL_Rect to = from;
        if (SDL_BlitSurface(pixels.get(), &from, screen, &to) == 0 && to.w > 0 && to.h > 0)
            copied.push_back(to);
    }
    SDL_UpdateWindowSurfaceRects(m_window.get(), copied.data(), static_cast<int>(copied.size()));
}

void ViewWindow::_showCursor()
{
    const SDL_SystemCursor wanted = obtainSystemCursor(m_control.getShownCursor());
    if (wanted == m_cursor)
        return;
    m_cursor = wanted;
    auto found = m_cursors.find(wanted);
    if (found == m_cursors.end())
        found = m_cursors.try_emplace(wanted, SDL_CreateSystemCursor(wanted), &SDL_FreeCursor).first;
    SDL_SetCursor(found->second.get());
}

void ViewWindow::_dump() const
{
    if (m_setting.dump.empty())
        return;
    const bool isWritten = m_control.getPicture().writePng(m_setting.dump);
    std::printf("%s %s\n", isWritten ? "dumped" : "cannot write", m_setting.dump.c_str());
    std::fflush(stdout);
}
