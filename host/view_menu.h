#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_size.h"
#include "view_menu_entry.h"

class UXPainter;

/** A context menu that stands over the board until something is chosen or clicked elsewhere. While it is open
 * it receives all events. */
class ViewMenu : public UXGlobalControlSpaceEventDiagram {
public:
    /** Opens the menu, closing the one before. Without entries nothing opens.
     *  @param point where it hangs from, in the control's pixels
     *  @param room the control's size in pixels, which the menu stays inside
     *  @param scale pixels per logical unit */
    void open(const ViewMenuEntries& entries, UXPoint point, const UXSize& room, double scale);
    void close();
    /** Begins with the first entry, as for someone who opened the menu by a key. */
    void lightFirstEntry();
    bool isOpen() const { return !m_entries.empty(); }
    /** @return the menu's place in the control's pixels, empty while it is closed */
    UXRect getMenuRect() const { return m_menuRect; }

    // From UXObject
    bool mouseDown(const UXEvent& event) override;
    bool mouseMove(const UXEvent& event) override;
    bool mouseUp(const UXEvent& event) override;
    bool mouseLeave(const UXEvent& event) override;
    bool mouseWheel(const UXEvent& event) override;
    bool mouseDoubleClick(const UXEvent& event) override;
    bool keyDown(const UXEvent& event) override;
    bool controlSize(const UXEvent& event) override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    /** @return the entry at a point in pixels, -1 for none */
    int _findEntry(const UXPoint& point) const;
    void _light(int entry);
    void _choose(int entry, const UXEvent& event);
    void _markDirty();
    void _drawGround(UXPainter& painter) const;
    void _drawEntries(UXPainter& painter) const;

    ViewMenuEntries m_entries;
    UXRect m_menuRect;  // pixels
    UXSize m_size;      // logical units
    double m_scale = 1; // pixels per logical unit
    int m_lit = -1;     // the entry that Enter chooses, -1 for none
};
