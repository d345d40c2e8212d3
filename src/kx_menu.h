#pragma once

#include "kx_export.h"
#include "kx_menu_entry.h"
#include "ux/ux_object.h"

#include <string>
#include <vector>

class KXMenuItem;

/** One open menu: rows under one another in a frame with a shadow, one of them the current one. The shadow
 * belongs to the menu's rectangle but takes no events. A menu that is not as high as its rows scrolls them.
 */
class KX_EXPORT KXMenu : public UXObject {
public:
    KXMenu();
    ~KXMenu() override;

    // Rows, which are children and may be destroyed by anyone
    void setEntries(const std::vector<KXMenuEntry>& entries);
    int getItemCount() const;
    /** @return null for an index that has no row */
    KXMenuItem* getItem(int index) const;

    // Place
    /** @return the size of a frame that shows all rows, no wider than menus may be */
    const UXSize& getWantedSize() const { return m_wantedSize; }
    /** @return the menu less its shadow, in the parent's space */
    UXRect getFrameRect() const;
    void setFrameRect(const UXRect& frame);
    /** @return between the frame and its first row, in logical units */
    static int obtainFramePadding();
    /** Moves the rows by distance as far as there are rows to show. @param distance positive shows later
     * ones */
    void scroll(int distance);

    // The current row
    /** @return -1 for none */
    int getCurrentIndex() const;
    /** Makes a row the current one and shows it; one that cannot be chosen, or none, leaves none current. */
    void setCurrentIndex(int index);
    /** @param step 1 for down, -1 for up
     *  @return the next row after from that can be chosen, around the ends; -1 where there is none */
    int obtainNextIndex(int from, int step) const;
    /** @param typed what a key types, UTF-8
     *  @return the next row after the current one that can be chosen and begins with typed, letters A to Z in
     * either case; -1 where there is none */
    int obtainIndexByText(const std::string& typed) const;
    /** @return the row under a point in the own space, -1 for none */
    int obtainIndexAt(UXPoint point) const;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    bool ptInRect(UXPoint point) const override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;

private:
    bool _isScrollable() const;
    void _placeItems();
    void _reveal(int index);
    void _paintFrame(UXPainter& painter) const;

    UXSize m_wantedSize;
    int m_scrollOffset = 0; // rows are this much further up
};
