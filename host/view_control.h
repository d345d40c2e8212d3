#pragma once

#include "kx_chart_linked_action_diagram.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/ux_control.h"
#include "ux/ux_dirty_region.h"
#include "ux/ux_global_smooth_scrolling_event_diagram.h"
#include "ux/ux_object_watcher.h"
#include "view_menu.h"
#include "view_scroll_bars.h"

#include <memory>
#include <string>
#include <vector>

class UXInputDelegate;
class ViewBoard;

/** The codes of the keys that the view answers beside those of the framework. */
enum class ViewKeyCode : int {
    Digit0 = 48,
    Q = 81,
    S = 83,
    T = 84,
    ContextMenu = 93,
    F10 = 121,
    F12 = 123,
    Plus = 187,
    Minus = 189
};

/** Shows a board as a picture in memory, painted anew where it is dirty, with its hints and menus on top.
 * Knows no window system: a window hands its input in and copies the painted areas to the screen. */
class ViewControl : public UXControl {
public:
    /** @param board outlives this object; its diagram becomes the one that is shown */
    explicit ViewControl(ViewBoard& board);
    ~ViewControl() override;

    /** Gives the picture a size in pixels, at least 1 x 1, and the board the room that this makes. */
    void resize(const UXSize& pixels, double scale);
    const UXCairoImagePaintConfig& getPicture() const { return *m_picture; }
    /** Lays out what has to be, and paints the dirty areas.
     *  @return the areas in pixels, which share none; empty when nothing changed */
    std::vector<UXRect> paintDirtyAreas();

    // Input whose meaning the board's charts leave to the view; the other kinds go to UXControl's own
    void press(const UXControlPoint& point, const UXEvent& event);
    /** With Ctrl it zooms; otherwise the board, or what lies under the pointer, scrolls. */
    void turnWheel(const UXControlPoint& point, const UXEvent& event);
    void pressKey(const UXEvent& event);
    /** Shows what an input method composes where what is typed would go.
     * @param caret in characters of text, which is UTF-8 */
    void compose(const std::string& text, int caret);

    /** On: the board jumps where it would glide. */
    void setReduceMotion(bool reduceMotion) { m_reduceMotion = reduceMotion; }
    ViewMenu& getMenu() { return m_menu; }
    /** @return the number of the cursor that was asked for last, a UXCursor or the host's own */
    int getShownCursor() const { return m_shownCursor; }

    // From UXControl
    /** The diagram stays in the middle where it is smaller than the control, and covers it where it is
     * larger; it lies on whole pixels. */
    void setDiagramDoubleOriginInControlSpace(const UXDoubleControlPoint& origin) override;
    bool hasDefaultBackground() const override;
    bool shouldReduceMotion() const override;
    void notifyFullScreenDirtyRect(UXDiagram* diagram) override;
    void notifyCursorChange(int cursor) override;
    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point) override;
    void notifyResetScroller() override;

private:
    UXRect _obtainBounds() const;
    std::vector<UXGlobalControlSpaceEventDiagram*> _obtainOverlays() const;
    UXDirtyRegion _takeDirtyPixels();
    void _paintArea(const UXRect& pixels);
    void _scroll(double dx, double dy);
    bool _changeThemeByKey(const UXEvent& event);
    bool _zoomByKey(const UXEvent& event);
    bool _scrollByKey(const UXEvent& event);
    UXInputDelegate* _findInput() const;
    void _showFocusedCard();
    void _openFocusedMenu();

    ViewBoard& m_board;
    UXGlobalControlSpaceEventDiagram m_hints;
    ViewMenu m_menu;
    ViewScrollBars m_scrollBars;
    UXGlobalSmoothScrollingEventDiagram m_scroller;
    KXChartLinkedActionDiagram m_linked;
    std::unique_ptr<UXCairoImagePaintConfig> m_picture;
    UXObjectWatcher m_composing{nullptr}; // what an input method composes for
    bool m_allDirty = true;
    bool m_reduceMotion = false;
    double m_wheelTurn = 0; // towards the next step of the zoom, in notches
    int m_shownCursor = 0;
};
