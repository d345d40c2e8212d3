#pragma once

#include "kx_export.h"
#include "kx_grid_band.h"
#include "kx_grid_block.h"
#include "kx_grid_hit.h"
#include "kx_grid_lines.h"
#include "kx_grid_selection.h"
#include "ux/ux_timer.h"
#include "ux/ux_virtual_scroll_view.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

class KXGridPanel;

/**
 * Rows and columns of any number, of which only those in sight cost anything. Headers and totals stay in
 * sight while the content scrolls both ways, and so do lines that are frozen; each panel shows where two
 * bands cross.
 *
 * Where it selects, presses choose cells, and on headers rows, columns or all, a drag goes on from there and
 * scrolls while it is beyond an edge, and the keys move: arrows, Page, Home, End, with Ctrl to the ends, with
 * Shift extending the choice; Shift and Space choose the rows, Ctrl and Space the columns, Escape nothing.
 */
class KX_EXPORT KXGrid : public UXVirtualScrollView, public UXVirtualScrollViewDelegate {
public:
    /** Of the extent: what headers and frozen lines, and what totals take at most, so that something of the
     * content is seen. */
    static constexpr double greatestHeaderShare = 0.6, greatestTotalsShare = 0.25;

    KXGrid();
    ~KXGrid() override;

    // What there is
    /** @param panel becomes a child, and takes the place of the one before, which is destroyed; null for none
     */
    void setPanel(KXGridBand rowBand, KXGridBand columnBand, KXGridPanel* panel);
    /** @return null for none */
    KXGridPanel* getPanel(KXGridBand rowBand, KXGridBand columnBand) const;
    /** Headers take no more than most of the room, and are cut there. */
    void setRows(KXGridBand band, const KXGridLines& rows);
    void setColumns(KXGridBand band, const KXGridLines& columns);
    const KXGridLines& getRows(KXGridBand band) const { return m_rows.lines[_obtainIndex(band)]; }
    const KXGridLines& getColumns(KXGridBand band) const { return m_columns.lines[_obtainIndex(band)]; }
    /** Off at first: totals stand after the content. */
    void setTotalsBeforeContent(bool rows, bool columns);
    /** Called when the user or anything else has scrolled. */
    void setScrolledHandler(std::function<void()> handler) { m_scrolled = std::move(handler); }

    // Where it is, in the own space
    std::optional<KXGridHit> findCell(const UXPoint& point) const;
    /** @return what can be seen of a cell, empty where that is nothing */
    UXRect obtainSeenRect(const KXGridHit& hit) const;
    /** Scrolls as little as brings a cell into sight, as far as it scrolls.
     *  @param cell as the selection counts it */
    void showCell(const KXGridCell& cell);
    /** @return how many rows of the content fit, at least one */
    std::uint64_t obtainPageRows() const;

    // What is chosen
    bool getSelects() const { return m_selects; }
    /** Off at first: presses and keys are left to whoever is around the grid. */
    void setSelects(bool selects);
    /** @return what counts the frozen lines before the content and the totals after it; headers are not in it
     */
    KXGridSelection& getSelection() { return m_selection; }
    const KXGridSelection& getSelection() const { return m_selection; }
    /** Called when the user has chosen something else; may destroy the grid. */
    void setSelectionHandler(std::function<void(const UXEvent&)> handler)
    {
        m_selectionChanged = std::move(handler);
    }
    /** Where it does not select by itself: a drag from one cell to another chooses those between them, which
     * the handler is told at the end; a press without a drag is left to whoever is around the grid.
     *  @param mayBegin asked at each press; may destroy the grid, as the handler may */
    void setDragHandler(std::function<bool()> mayBegin,
                        std::function<void(const KXGridBlock&, const UXEvent&)> handler);
    /** @return whether what is chosen is to be seen */
    bool showsSelection() const { return m_selects || m_drags; }
    /** @return the cell as the selection counts it, none for a header's */
    std::optional<KXGridCell> obtainSelectionCell(const KXGridHit& hit) const;
    /** Acts on a key. @return whether it is one of the selection's */
    bool walk(const UXEvent& event);
    /** @return whether keys have led to the focused cell */
    bool showsFocus() const { return m_showsFocus; }

    // From UXJsonObject, UXObject and UXVirtualScrollViewDelegate
    std::string customSerializeTypeID() override;
    void setRect(UXRect rect) override;
    bool shouldClipInScrollArea(UXVirtualScrollView* view, UXObject* object) override;

protected:
    void customLayout() override;
    void contentOffsetChanged(const UXEvent& event, UXScrollBar* scrollBar) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    friend class KXGridPanel;
    /** The bands of one direction. */
    struct Bands {
        std::array<KXGridLines, kxGridBandCount> lines;
        std::array<int, kxGridBandCount> starts{}, extents{}; // of what is shown, in the own space
        bool totalsFirst = false;
    };

    static constexpr std::size_t panelCount = std::size_t{kxGridBandCount} * kxGridBandCount;
    static std::size_t _obtainIndex(KXGridBand band) { return static_cast<std::size_t>(band); }
    static std::size_t _obtainSlot(KXGridBand rowBand, KXGridBand columnBand)
    {
        return _obtainIndex(rowBand) * kxGridBandCount + _obtainIndex(columnBand);
    }
    void _reserveRoom();
    void _placeBands(Bands& bands, int start, int shown, int bandsBefore) const;
    void _layoutPanels();
    void _updateSelectionExtent();
    static std::uint64_t _countBefore(const Bands& bands, KXGridBand band);
    UXRect _obtainContentRect() const;

    // The user
    bool _press(const UXEvent& event);
    bool _startDrag(const UXEvent& event);
    void _endDrag(const UXEvent& event);
    void _dragTo(const UXPoint& point, const UXEvent& event);
    void _scrollAtEdge();
    bool _act(const UXEvent& event);
    void _tellSelection(const UXEvent& event);

    std::array<KXGridPanel*, panelCount> m_panels{}; // children
    Bands m_rows, m_columns;
    KXGridSelection m_selection;
    std::function<void()> m_scrolled;
    std::function<void(const UXEvent&)> m_selectionChanged;
    std::function<bool()> m_mayDrag;
    std::function<void(const KXGridBlock&, const UXEvent&)> m_dragged;
    UXTimer m_edgeTimer;
    UXPoint m_dragPoint, m_pressPoint;
    std::optional<KXGridCell> m_dragStart; // pressed, where a drag would begin
    bool m_ignoresClick = false;           // that ends a drag
    bool m_selects = false;
    bool m_showsFocus = false;
    bool m_drags = false;
};
