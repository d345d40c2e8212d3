#pragma once

#include "kx_export.h"
#include "kx_menu_entry.h"
#include "ux/ux_accessible_source.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_object.h"

#include <string>

/** One button of a chart's strip: an icon, whose text a hint says. What a click does is the strip's affair.
 */
class KX_EXPORT KXChartToolboxItem : public UXObject, public UXHintDelegate, public UXAccessibleSource {
public:
    /** Width and height that a button takes, in logical units. */
    static constexpr int extent = 24;

    KXChartToolboxItem();
    ~KXChartToolboxItem() override;

    const KXMenuEntry& getEntry() const { return m_entry; }
    void setEntry(const KXMenuEntry& entry);
    /** @return whether the button's menu is open, which it looks pressed for */
    bool getMenuOpen() const { return m_menuOpen; }
    void setMenuOpen(bool menuOpen);
    /** @return whether keys act on the button, which a ring around it shows */
    bool getFocused() const { return m_focused; }
    void setFocused(bool focused);

    // From UXAccessibleSource: a button
    std::unique_ptr<UXAccessibleNode> createAccessibleNode() override;

    // From UXHintDelegate, UXJsonObject and UXObject
    /** @return the button as a whole */
    UXRect obtainHintArea(UXPoint point) override;
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseEnter(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    void _paintButton(UXPainter& painter) const;
    void _set(bool& member, bool value);

    KXMenuEntry m_entry;
    bool m_menuOpen = false;
    bool m_focused = false;
};
