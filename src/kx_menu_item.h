#pragma once

#include "kx_export.h"
#include "kx_menu_entry.h"
#include "ux/ux_object.h"

/** One row of a menu. It draws its entry; the menu says where, and what happens is decided by the diagram
 * that shows the menu. */
class KX_EXPORT KXMenuItem : public UXObject {
public:
    /** What the rows of one menu leave room for, so that their labels stand in line. */
    struct Columns {
        bool checks = false, icons = false, subMenus = false;
        friend bool operator==(const Columns&, const Columns&) = default;
    };

    KXMenuItem();
    ~KXMenuItem() override;

    const KXMenuEntry& getEntry() const { return m_entry; }
    void setEntry(const KXMenuEntry& entry);
    void setColumns(const Columns& columns);
    /** @return whether the row is the one that keys and the pointer act on */
    bool getCurrent() const { return m_current; }
    void setCurrent(bool current);

    // Queries
    bool canBeChosen() const { return m_entry.enabled && !m_entry.separator; }
    bool hasSubMenu() const { return canBeChosen() && !m_entry.entries.empty(); }
    /** @return the extents that show the whole row, in logical units */
    int obtainWantedWidth() const;
    int obtainHeight() const;
    /** @return where the label stands, in the own space; what is wider ends in an ellipsis */
    UXRect obtainLabelRect() const;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    void _paintRow(UXPainter& painter) const;

    KXMenuEntry m_entry;
    Columns m_columns;
    bool m_current = false;
};
