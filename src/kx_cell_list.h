#pragma once

#include "kx_export.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

class KXCellListDelegate;
class KXListCell;
class UXEvent;
class UXObject;
class UXVirtualScrollView;

/** Where the cells of a list stand in its content, in logical units. */
struct KXCellArrangement {
    bool isRow = false; /**< from left to right; otherwise from top to bottom */
    int margin = 0;     /**< around the cells */
    double cellHeight = 0;
    int pitch = 1;             /**< of a column, from one cell's top to the next one's */
    std::vector<double> lefts; /**< of the cells of a row, by place */
};

/**
 * A row or a column of cells in a scroll view, of which only those in sight have an object: one that stays in
 * sight stays the same object, with its hover, those that have left serve for others, and what nobody needs
 * goes. A keyboard walks from cell to cell, whether they are in sight or not: arrows, Home, End and the page
 * keys; Enter clicks, Space switches.
 */
class KX_EXPORT KXCellList {
public:
    /** @param delegate, owner the object that owns this and the view, in its two roles */
    KXCellList(KXCellListDelegate& delegate, UXObject& owner);

    /** @param view holds the cells as children; the owner's, not null */
    void setView(UXVirtualScrollView* view) { m_view = view; }
    void setArrangement(KXCellArrangement arrangement) { m_arrangement = std::move(arrangement); }

    /** Gives every cell in sight an object at its place, and no other one.
     *  @param contentChanged off: only cells that come into sight are filled */
    void placeCells(bool contentChanged);
    /** What is being placed is to be placed anew: cells or who fills them changed. */
    void interrupt() { ++m_generation; }
    /** Destroys all objects. */
    void clear();
    /** No cell looks any more as if the pointer were on it. */
    void endHover();

    // For those who do not see the list
    UXObject& getOwner() const { return m_owner; }
    KXCellListDelegate& getDelegate() const { return m_delegate; }
    std::uint64_t obtainCount() const { return _obtainPlaces().size(); }
    std::uint64_t obtainIndex(std::uint64_t place) const;
    /** @return what can be seen of the cell at a place, in the diagram's space; empty for nothing */
    UXRect obtainSeenRect(std::uint64_t place) const;
    /** The keyboard comes to the cell at a place from wherever it is.
     *  @param clicks does what Enter does there, too; the owner may have gone then */
    void goTo(std::uint64_t place, bool clicks);

    // The keyboard; the owner has the focus
    /** Acts on a key. @return whether it is one of the list's */
    bool walk(const UXEvent& event);
    /** Comes to the cell at a place of the list, which is scrolled into sight. */
    void walkTo(std::size_t place);
    /** The walk begins, or goes on from where it had come to. */
    void beginWalk();
    /** The pointer pressed a cell, none for the list beside them: keys go on from there. */
    void press(const std::optional<std::uint64_t>& index);
    /** @return the cell that the walk has come to, none before it began */
    std::optional<std::uint64_t> getWalkedCell() const;
    /** @return whether the walk shows that it has come to the cell: with the focus, and not after a press */
    bool isWalkedTo(std::uint64_t index) const;

private:
    std::span<const int> _obtainPlaces() const;
    bool _endLostHover();
    std::vector<UXObjectWatcher> _takeCells(std::size_t first, std::size_t end);
    bool _fillPlace(std::size_t place, const UXObjectWatcher& taken, bool contentChanged);
    void _placeCell(KXListCell* cell, const UXRect& rect);
    std::optional<std::size_t> _obtainWalkedPlace() const;
    void _showPlace(std::size_t place);
    KXListCell* _findCell(std::uint64_t index) const;
    std::vector<KXListCell*> _obtainCells() const;
    std::pair<std::size_t, std::size_t> _obtainVisiblePlaces() const;
    UXRect _obtainCellRect(std::size_t place) const;

    KXCellListDelegate& m_delegate;
    UXObject& m_owner;
    UXVirtualScrollView* m_view = nullptr; // the owner's
    KXCellArrangement m_arrangement;
    unsigned m_generation = 0; // tells whoever places cells that this was begun anew meanwhile
    std::optional<std::uint64_t> m_walkedCell;
    bool m_showsWalk = false;
};
