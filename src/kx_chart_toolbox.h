#pragma once

#include "kx_chart_data_user_watcher.h"
#include "kx_export.h"
#include "kx_menu_entry.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class KXChartDataProviderUse;
class KXChartDataUser;
class KXChartToolboxItem;
class KXMenuEventDiagram;
struct KXChartToolboxMenuContext;

/**
 * The strip of buttons along a chart's top edge that shows while the pointer is over a chart whose host wants
 * it, and while the keyboard is on it. The buttons stand at its right end and alone take events; those
 * without room are in a menu of the last one. With the focus, Left, Right, Home and End go from button to
 * button, Enter, Space and Down press, and Escape goes back to the chart.
 *
 * Its menus are a part of the chart's diagram, as the strip is: they hang on their button at every zoom, and
 * whoever enlarges the diagram to read it reads them, too.
 */
class KX_EXPORT KXChartToolbox : public UXObject {
public:
    KXChartToolbox();
    ~KXChartToolbox() override;

    /** @param user the chart's; may be null */
    void setDataUser(KXChartDataUser* user);
    /** @return null once its chart is gone */
    KXChartDataUser* getDataUser() const;

    // Contents
    /** Asks the provider what the strip holds. */
    void prepare();
    /** @return what the host wants in the strip; none before prepare() */
    const std::vector<KXMenuEntry>& getEntries() const { return m_entries; }
    /** @return the buttons from left to right, children */
    std::vector<KXChartToolboxItem*> getItems() const;
    /** Draws the strip's place anew, shown or hidden. */
    void refresh();

    // Showing
    /** The pointer is over the chart. */
    void pointerCame();
    /** The pointer is over the chart no more: the strip hides, after its menu if one is open, and not before
     * the keyboard has gone on. */
    void pointerLeft();
    /** The keyboard comes to the strip, which shows from now on until the focus is elsewhere.
     *  @return whether there is a button to come to */
    bool takeKeys();
    /** The keyboard goes on: the strip hides unless the pointer keeps it. */
    void leaveKeys();

    // Menus
    bool getMenuOpen() const;
    /** @return what shows the strip's menus, its own; null before the first one */
    KXMenuEventDiagram* getMenuDiagram() const { return m_menuDiagram.get(); }
    /** Does what a click on a button does. The entry's action is posted on event; a button that has neither
     * action nor entries asks the provider for a menu. One that is not enabled does nothing.
     *  @return whether it is one of the buttons */
    bool activateItem(KXChartToolboxItem* item, const UXEvent& event);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    bool getVisible() const override;
    void setVisible(bool visible) override;
    bool ptInRect(UXPoint point) const override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    using Question =
        std::function<KXChartToolboxMenuContext*(const KXChartDataProviderUse&, KXChartDataUser*)>;

    std::vector<KXMenuEntry> _obtainEntries(const Question& ask);
    std::vector<KXMenuEntry> _obtainShownEntries() const;
    UXRect _obtainButtonsRect() const;
    void _placeItems();
    bool _hasFocus() const;
    void _focusItem(int index);
    int _obtainFocusedIndex() const;
    void _openOwnMenu(KXChartToolboxItem* item);
    void _openDropDownMenu(const std::string& identifier, const UXRect& anchor, UXObject* item);
    void _openMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor, UXObject* item);
    void _menuClosed();
    void _prepareAfter(const UXEvent& event);

    KXChartDataUserWatcher m_dataUser; // the chart's
    std::vector<KXMenuEntry> m_entries;
    std::unique_ptr<KXMenuEventDiagram> m_menuDiagram;
    bool m_hidesAfterMenu = false;
    bool m_showsForKeys = false; // no pointer keeps the strip, the focus alone does
};
