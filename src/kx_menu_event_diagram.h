#pragma once

#include "kx_export.h"
#include "kx_menu_entry.h"
#include "kx_popup_event_diagram.h"

#include <optional>
#include <string>
#include <vector>

class KXMenu;

/**
 * Shows a menu and its sub-menus over a diagram, inside the diagram's rectangle. While a menu is open it has
 * all events to itself. A press elsewhere closes it and does nothing else.
 *
 * The pointer makes the row under it the current one and opens its sub-menu; a press or a release chooses.
 * Up, Down, Home, End and what a row begins with move the current row, Right and Left open and close
 * sub-menus, Enter and Space choose, Escape closes the last menu and Tab all.
 */
class KX_EXPORT KXMenuEventDiagram : public KXPopupEventDiagram {
public:
    explicit KXMenuEventDiagram(UXContext* context = nullptr);
    ~KXMenuEventDiagram() override;

    /** Opens a menu in place of the one before, and keeps the diagram registered from then on. Without
     * entries nothing opens.
     *  @param diagram the one that the menu lies over
     *  @param anchor the menu hangs below it, or stands above where only that has the room; in diagram's
     * space, empty for a point
     *  @param owner whose menu it is: the menu closes with the next event once that is gone, hidden or no
     * longer on diagram; null for nobody's */
    void openMenu(UXDiagram* diagram, std::vector<KXMenuEntry> entries, const UXRect& anchor,
                  UXObject* owner = nullptr);
    /** Begins with the first row, as for someone who opened the menu by a key. */
    void selectFirstItem();
    void closeMenu() { close(); }
    /** @return the open menus, each the sub-menu of the one before */
    std::vector<KXMenu*> getMenus() const;

    // From KXPopupEventDiagram and UXJsonObject
    bool isOpen() const override;
    std::string customSerializeTypeID() override;

protected:
    void _removeContent() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    enum class Side { Below, Beside };

    void _addMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor, Side side);
    void _openSubMenu(KXMenu* menu, int index);
    void _closeDeeperThan(std::size_t depth);
    /** @return how many menus there are up to the front one under point; 0 where none is */
    std::size_t _obtainDepthAt(UXPoint point) const;
    void _pointAt(UXPoint point);
    void _choose(KXMenu* menu, int index, const UXEvent& event);
    void _answerKey(KXMenu* menu, const UXEvent& event);
    void _goBack();
    void _pointBehindLater(const UXEvent& event) const;

    std::optional<UXPoint> m_lastPoint; // of the pointer, since the menu opened
    bool m_pointerUsed = false;         // the menu did not just open under a button that is down
};
