#include "kx_cell_list.h"

#include "kx_cell_list_delegate.h"
#include "kx_list_cell.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <memory>

KXCellList::KXCellList(KXCellListDelegate& delegate, UXObject& owner) : m_delegate(delegate), m_owner(owner)
{
}

/** @return the listed cells, as far as they have been arranged */
std::span<const int> KXCellList::_obtainPlaces() const
{
    const std::span<const int> listed = m_delegate.obtainListedCells();
    return m_arrangement.isRow ? listed.first(std::min(listed.size(), m_arrangement.lefts.size())) : listed;
}

void KXCellList::clear()
{
    ++m_generation;
    for (KXListCell* cell : _obtainCells())
        delete cell;
}

void KXCellList::endHover()
{
    // The owner hears of it, and cells may go meanwhile.
    const std::vector<KXListCell*> cells = _obtainCells();
    for (const UXObjectWatcher& watcher : std::vector<UXObjectWatcher>(cells.begin(), cells.end()))
        if (auto* cell = dynamic_cast<KXListCell*>(watcher.getObject()))
            cell->endHover();
}

void KXCellList::placeCells(bool contentChanged)
{
    const UXObjectWatcher owner(&m_owner);
    const unsigned before = m_generation;
    if (!_endLostHover() || m_generation != before)
        return;
    ++m_generation;
    const auto [first, end] = _obtainVisiblePlaces();
    const std::vector<UXObjectWatcher> cells = _takeCells(first, end);
    for (std::size_t place = first; place < end; ++place)
        if (!_fillPlace(place, cells[place - first], contentChanged))
            return;
    // Whatever came and went meanwhile, cells are painted in their order.
    std::vector<KXListCell*> placed = _obtainCells();
    if (!std::ranges::is_sorted(placed, {}, &KXListCell::getIndex)) {
        std::ranges::sort(placed, {}, &KXListCell::getIndex);
        for (KXListCell* cell : placed)
            m_view->bringChildToFront(cell);
    }
    if (contentChanged)
        m_view->invalidate();
}

/** @param taken the object that is to serve for the place; of none, or of one that has gone, a new one does
 *  @return false where an answer of the owner had the cells placed anew, or ended the owner */
bool KXCellList::_fillPlace(std::size_t place, const UXObjectWatcher& taken, bool contentChanged)
{
    const UXObjectWatcher owner(&m_owner);
    const auto isCurrent = [this, &owner, generation = m_generation] {
        return owner.isAlive() && m_generation == generation;
    };
    const auto index = static_cast<std::uint64_t>(_obtainPlaces()[place]);
    auto* known = static_cast<KXListCell*>(taken.getObject());
    if (known && !contentChanged && known->getIndex() == index) {
        _placeCell(known, _obtainCellRect(place));
        return true;
    }
    std::unique_ptr<KXListCell> made;
    if (!taken.isAlive())
        made = m_delegate.makeCell();
    if (!isCurrent())
        return false;
    const UXObjectWatcher cell(made ? made.get() : taken.getObject());
    m_delegate.fillCell(*static_cast<KXListCell*>(cell.getObject()), index);
    if (!isCurrent())
        return false;
    if (cell.isAlive())
        _placeCell(static_cast<KXListCell*>(cell.getObject()), _obtainCellRect(place));
    static_cast<void>(made.release()); // the view's now
    return true;
}

/** A cell under the pointer that is not seen any more serves for another one or goes, and nobody must take it
 * for pointed at. @return whether the owner is still here */
bool KXCellList::_endLostHover()
{
    const UXObjectWatcher owner(&m_owner);
    const auto [first, end] = _obtainVisiblePlaces();
    const std::span<const int> seen = _obtainPlaces().subspan(first, end - first);
    std::vector<UXObjectWatcher> lost;
    for (KXListCell* cell : _obtainCells())
        if (cell->isHovered() && !std::ranges::binary_search(seen, uxSaturateToInt(cell->getIndex())))
            lost.emplace_back(cell);
    for (const UXObjectWatcher& watcher : lost)
        if (auto* cell = dynamic_cast<KXListCell*>(watcher.getObject()))
            cell->endHover();
    return owner.isAlive();
}

/** A child that changes its size has the whole chart laid out; cells change theirs outside of the tree, so
 * that scrolling lays out nothing. */
void KXCellList::_placeCell(KXListCell* cell, const UXRect& rect)
{
    const UXRect old = cell->getRect();
    const bool isMoved = old.width == rect.width && old.height == rect.height;
    if (cell->getParent() && !isMoved)
        m_view->removeChild(cell);
    cell->setRect(rect);
    if (!cell->getParent())
        m_view->addChild(cell);
}

/** @return one entry a place, null where there is no object for it */
std::vector<UXObjectWatcher> KXCellList::_takeCells(std::size_t first, std::size_t end)
{
    std::vector<KXListCell*> cells(end - first);
    std::vector<KXListCell*> free;
    const std::span<const int> seen = _obtainPlaces().subspan(first, end - first);
    for (KXListCell* cell : _obtainCells()) {
        const int index = uxSaturateToInt(cell->getIndex());
        const auto found = std::ranges::lower_bound(seen, index);
        KXListCell** entry = found != seen.end() && *found == index
                                 ? &cells[static_cast<std::size_t>(found - seen.begin())]
                                 : nullptr;
        if (entry && !*entry)
            *entry = cell;
        else
            free.push_back(cell);
    }
    for (KXListCell*& cell : cells) {
        if (cell || free.empty())
            continue;
        cell = free.back();
        free.pop_back();
    }
    for (KXListCell* cell : free)
        delete cell;
    return {cells.begin(), cells.end()};
}

bool KXCellList::walk(const UXEvent& event)
{
    const auto last = std::ssize(_obtainPlaces()) - 1;
    if (last < 0)
        return false;
    const std::optional<std::size_t> walked = _obtainWalkedPlace();
    const auto place = walked ? static_cast<std::ptrdiff_t>(*walked) : -1;
    const auto [first, end] = _obtainVisiblePlaces();
    // A page keeps one cell, so that the eye finds its place.
    const auto page = std::max<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(end - first) - 2, 1);
    const auto goTo = [&](std::ptrdiff_t wanted) {
        walkTo(static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last)));
        return true;
    };
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Left:
    case UXKeyCode::Up:
        return goTo(place - 1);
    case UXKeyCode::Right:
    case UXKeyCode::Down:
        return goTo(place + 1);
    case UXKeyCode::PageUp:
        return goTo(place - page);
    case UXKeyCode::PageDown:
        return goTo(place + page);
    case UXKeyCode::Home:
        return goTo(0);
    case UXKeyCode::End:
        return goTo(last);
    case UXKeyCode::Enter:
        if (KXListCell* cell = walked ? _findCell(*m_walkedCell) : nullptr)
            m_delegate.clickCell(*cell, event);
        return walked.has_value();
    case UXKeyCode::Space:
        if (walked)
            m_delegate.switchCell(*m_walkedCell, event);
        return walked.has_value();
    default:
        return false;
    }
}

std::uint64_t KXCellList::obtainIndex(std::uint64_t place) const
{
    return static_cast<std::uint64_t>(_obtainPlaces()[static_cast<std::size_t>(place)]);
}

UXRect KXCellList::obtainSeenRect(std::uint64_t place) const
{
    const UXRect rect = _obtainCellRect(static_cast<std::size_t>(place));
    const UXRect seen = uxIntersectionRect(rect, m_view->obtainScrollContentRect());
    return uxIsEmptyRect(seen) ? UXRect() : m_view->translateRectToParent(seen, nullptr);
}

void KXCellList::goTo(std::uint64_t place, bool clicks)
{
    const UXNotificationScope scope;
    UXDiagram* diagram = uxObtainDiagram(&m_owner);
    if (!diagram || place >= obtainCount())
        return;
    const UXObjectWatcher owner(&m_owner);
    diagram->setFocusedObject(&m_owner);
    walkTo(static_cast<std::size_t>(place));
    KXListCell* cell = owner.isAlive() && clicks && m_walkedCell ? _findCell(*m_walkedCell) : nullptr;
    if (!cell)
        return;
    const UXEvent event(UXEventType::KeyDown);
    m_delegate.clickCell(*cell, event);
    event.runPostedActions();
}

void KXCellList::beginWalk() { walkTo(_obtainWalkedPlace().value_or(_obtainVisiblePlaces().first)); }

void KXCellList::press(const std::optional<std::uint64_t>& index)
{
    if (index)
        m_walkedCell = index;
    m_showsWalk = false;
}

std::optional<std::uint64_t> KXCellList::getWalkedCell() const
{
    return _obtainWalkedPlace() ? m_walkedCell : std::nullopt;
}

bool KXCellList::isWalkedTo(std::uint64_t index) const
{
    if (!m_showsWalk || m_walkedCell != index)
        return false;
    const UXDiagram* diagram = uxObtainDiagram(m_view);
    return !diagram || diagram->getFocusedObject() == &m_owner;
}

/** @return where the walked cell stands among the listed ones; none when it is not listed any more */
std::optional<std::size_t> KXCellList::_obtainWalkedPlace() const
{
    if (!m_walkedCell)
        return std::nullopt;
    const std::span<const int> listed = _obtainPlaces();
    const auto found = std::ranges::lower_bound(listed, uxSaturateToInt(*m_walkedCell));
    if (found == listed.end() || !std::cmp_equal(*found, *m_walkedCell))
        return std::nullopt;
    return static_cast<std::size_t>(found - listed.begin());
}

void KXCellList::walkTo(std::size_t place)
{
    const UXObjectWatcher owner(&m_owner);
    if (KXListCell* left = m_walkedCell ? _findCell(*m_walkedCell) : nullptr)
        left->endExplanation();
    // Meanwhile there may be fewer cells.
    if (!owner.isAlive() || place >= _obtainPlaces().size())
        return;
    m_walkedCell = static_cast<std::uint64_t>(_obtainPlaces()[place]);
    m_showsWalk = true;
    _showPlace(place);
    if (!owner.isAlive())
        return;
    m_view->invalidate();
    if (owner.isAlive())
        uxTellAccessibleChange(m_owner, UXAccessibleChange::Focus);
    if (KXListCell* cell = owner.isAlive() ? _findCell(*m_walkedCell) : nullptr)
        cell->explain(UXPoint(0, cell->getRect().height), nullptr);
}

/** Scrolls as little as brings all of a cell into view. */
void KXCellList::_showPlace(std::size_t place)
{
    const UXSize area = m_view->obtainDisplayArea();
    const auto reach = [](std::int64_t offset, std::int64_t shown, std::int64_t start, std::int64_t extent) {
        return std::min(std::max(offset, start + extent - shown), start);
    };
    const std::int64_t margins = std::int64_t{2} * m_arrangement.margin;
    if (m_arrangement.isRow) {
        const double width = m_delegate.obtainCellWidth(place);
        const auto left = static_cast<std::int64_t>(std::floor(m_arrangement.lefts[place])) -
                          m_arrangement.margin;
        const auto extent = static_cast<std::int64_t>(std::ceil(width)) + margins;
        m_view->setContentOffsetX(reach(m_view->getContentOffsetX(), area.width, left, extent));
        return;
    }
    const std::int64_t top = static_cast<std::int64_t>(place) * std::max(m_arrangement.pitch, 1);
    const std::int64_t extent = uxSaturateToInt(std::ceil(m_arrangement.cellHeight)) + margins;
    m_view->setContentOffsetY(reach(m_view->getContentOffsetY(), area.height, top, extent));
}

KXListCell* KXCellList::_findCell(std::uint64_t index) const
{
    for (KXListCell* cell : _obtainCells())
        if (cell->getIndex() == index)
            return cell;
    return nullptr;
}

std::vector<KXListCell*> KXCellList::_obtainCells() const
{
    std::vector<KXListCell*> cells;
    for (UXObject* child : m_view->getChildren())
        if (auto* cell = dynamic_cast<KXListCell*>(child))
            cells.push_back(cell);
    return cells;
}

/** @return the first place that the view's visible part meets, and the one after the last */
std::pair<std::size_t, std::size_t> KXCellList::_obtainVisiblePlaces() const
{
    const UXSize area = m_view->obtainDisplayArea();
    const std::size_t count = _obtainPlaces().size();
    if (area.width <= 0 || area.height <= 0 || count == 0)
        return {0, 0};
    if (m_arrangement.isRow) {
        const std::vector<double>& lefts = m_arrangement.lefts;
        const auto left = static_cast<double>(m_view->getContentOffsetX());
        const auto end = std::lower_bound(lefts.begin(), lefts.end(), left + area.width);
        // The last cell that begins at the left edge or before it may reach into view.
        auto first = std::upper_bound(lefts.begin(), end, left);
        if (first != lefts.begin())
            --first;
        const auto bound = [&lefts, count](auto place) {
            return std::min(count, static_cast<std::size_t>(place - lefts.begin()));
        };
        return {bound(first), bound(end)};
    }
    const std::int64_t pitch = std::max(m_arrangement.pitch, 1);
    const std::int64_t top = m_view->getContentOffsetY() - m_arrangement.margin;
    const auto bound = [count](std::int64_t place) {
        return std::min(count, static_cast<std::size_t>(std::max<std::int64_t>(place, 0)));
    };
    return {bound(top / pitch), bound((top + area.height + pitch - 1) / pitch)};
}

UXRect KXCellList::_obtainCellRect(std::size_t place) const
{
    const UXRect area = m_view->obtainScrollContentRect();
    // Rounded up, so that a text that was measured to fit is not cut.
    const int width = uxSaturateToInt(std::ceil(m_delegate.obtainCellWidth(place)));
    const int height = uxSaturateToInt(std::ceil(m_arrangement.cellHeight));
    if (m_arrangement.isRow) {
        const double left = m_arrangement.lefts[place] - static_cast<double>(m_view->getContentOffsetX());
        return {uxSaturateToInt(area.x + std::floor(left)),
                uxSaturateToInt(area.y + (std::int64_t{area.height} - height) / 2), width, height};
    }
    const std::int64_t top = m_arrangement.margin +
                             static_cast<std::int64_t>(place) * std::max(m_arrangement.pitch, 1) -
                             m_view->getContentOffsetY();
    const UXRect inside = uxInflateRect(area, -m_arrangement.margin, 0);
    return {inside.x, uxSaturateToInt(area.y + top), std::clamp(inside.width, 0, width), height};
}
