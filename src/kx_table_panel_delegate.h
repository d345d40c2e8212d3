#pragma once

#include "kx_export.h"

class KXTablePanel;
class UXEvent;

/** What a table does for its panels. */
class KX_EXPORT KXTablePanelDelegate {
public:
    /** Places what the panel shows of the rows and columns in its sight. Asks nobody. */
    virtual void layoutTablePanel(KXTablePanel& panel) = 0;
    /** The pointer was pressed, dragged, released or double clicked in the panel. May destroy the table.
     *  @return whether that was for the panel, so that it chooses nothing */
    virtual bool tablePanelPressed(KXTablePanel& panel, const UXEvent& event) = 0;
    virtual bool tablePanelDragged(KXTablePanel& panel, const UXEvent& event) = 0;
    virtual bool tablePanelReleased(KXTablePanel& panel, const UXEvent& event) = 0;
    virtual bool tablePanelDoubleClicked(KXTablePanel& panel, const UXEvent& event) = 0;
    virtual void tablePanelPointed(KXTablePanel& panel, const UXEvent& event) = 0;

protected:
    ~KXTablePanelDelegate() = default;
};
