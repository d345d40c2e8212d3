#pragma once

#include "view_control.h"

#include <SDL.h>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

/** How a window begins, and what it tells on standard output. */
struct ViewWindowSetting {
    std::string title;
    UXSize size{1000, 640};      // logical units
    std::optional<double> scale; // pixels per logical unit; without it what the display asks for
    bool reducesMotion = false;  // what would glide jumps
    bool logsPaints = false;     // a line for each painted area, in pixels
    std::string dump;            // the PNG file that F12 and SIGUSR1 write the picture to; empty for none
};

/** A board in a window of the system's, with its input, until the user closes it. */
class ViewWindow {
public:
    /** Throws HostError where there is no display or no window to be had.
     *  @param board outlives this object */
    ViewWindow(ViewBoard& board, const ViewWindowSetting& setting);
    ~ViewWindow();
    ViewWindow(const ViewWindow&) = delete;
    ViewWindow& operator=(const ViewWindow&) = delete;

    /** Shows the window and serves it until it is closed. */
    void run();

    void setTitle(const std::string& title);
    /** @param save what Ctrl+S does; may be empty */
    void setSaveHandler(std::function<void()> save) { m_save = std::move(save); }
    void copyToClipboard(const std::string& text);

private:
    /** SDL itself, from the first window to its end. */
    struct Library {
        Library();
        ~Library();
    };

    // Size
    double _obtainPixelRatio() const;
    void _takeSize();

    // Input
    void _handle(const SDL_Event& event);
    void _handleWindow(const SDL_WindowEvent& event);
    void _handleButton(const SDL_MouseButtonEvent& event);
    void _handleWheel(const SDL_MouseWheelEvent& event);
    void _handleKey(const SDL_KeyboardEvent& event);
    UXControlPoint _toPixel(int x, int y) const;

    // Output
    void _paint();
    void _copyToScreen(const std::vector<UXRect>& areas);
    void _showCursor();
    void _dump() const;

    ViewWindowSetting m_setting;
    Library m_library;
    std::unique_ptr<SDL_Window, decltype(&SDL_DestroyWindow)> m_window;
    ViewControl m_control;
    std::map<SDL_SystemCursor, std::unique_ptr<SDL_Cursor, decltype(&SDL_FreeCursor)>> m_cursors;
    SDL_SystemCursor m_cursor = SDL_SYSTEM_CURSOR_ARROW;
    UXControlPoint m_pointer;
    std::function<void()> m_save;
    bool m_isExposed = false; // what the screen shows is lost
    bool m_isOpen = true;
};
