#include "kx_menu_event_diagram.h"

#include "kx_menu.h"
#include "kx_menu_item.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int subMenuOverlap = 4;   // of a sub-menu and the menu that it belongs to, in logical units
constexpr int rowsPerWheelStep = 2; // of about 26 units
constexpr int rowExtent = 26;

/** @return a frame of size at anchor and inside bounds: on the other side of anchor where only that has the
 * room */
UXRect placeFrame(const UXSize& size, const UXRect& anchor, const UXRect& bounds, bool beside)
{
    UXRect rect{anchor.x, anchor.getBottom(), size.width, size.height};
    const int before = uxSaturateToInt(std::int64_t{anchor.x} - size.width);
    const int above = uxSaturateToInt(std::int64_t{anchor.y} - size.height);
    if (beside) {
        rect.x = uxMaxX(anchor);
        rect.y = uxSaturateToInt(std::int64_t{anchor.y} - KXMenu::obtainFramePadding());
        if (uxMaxX(rect) > uxMaxX(bounds) && before >= bounds.x)
            rect.x = before;
    } else {
        if (uxMaxX(rect) > uxMaxX(bounds))
            rect.x = uxSaturateToInt(std::int64_t{uxMaxX(anchor)} - size.width);
        if (rect.getBottom() > bounds.getBottom() && above >= bounds.y)
            rect.y = above;
    }
    return uxShiftAndBoundInRect(rect, bounds);
}

/** @return above 0 where b lies clockwise of a, as seen from origin */
double cross(const UXPoint& origin, const UXPoint& a, const UXPoint& b)
{
    const double ax = static_cast<double>(a.x) - origin.x, ay = static_cast<double>(a.y) - origin.y;
    const double bx = static_cast<double>(b.x) - origin.x, by = static_cast<double>(b.y) - origin.y;
    return ax * by - ay * bx;
}

/** @return whether a pointer that went from one point to another is on its way to frame: between the lines to
 * the two corners on its side */
bool movesTowards(const UXPoint& from, const UXPoint& to, const UXRect& frame)
{
    if (to.x == from.x || (to.x > from.x) != (uxMidX(frame) > from.x))
        return false;
    const int edge = to.x > from.x ? frame.x : uxMaxX(frame);
    const double upper = cross(from, {edge, frame.y}, to);
    const double lower = cross(from, {edge, frame.getBottom()}, to);
    return to.x > from.x ? upper >= 0 && lower <= 0 : upper <= 0 && lower >= 0;
}

} // namespace

KXMenuEventDiagram::KXMenuEventDiagram(UXContext* context) : KXPopupEventDiagram(context) {}

KXMenuEventDiagram::~KXMenuEventDiagram()
{
    setClosedHandler({});
    clearChildren();
}

// Keeps its own entries: what hears that an open menu closes may end the caller's.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void KXMenuEventDiagram::openMenu(UXDiagram* diagram, std::vector<KXMenuEntry> entries, const UXRect& anchor,
                                  UXObject* owner)
{
    if (entries.empty()) {
        close();
        return;
    }
    if (!_openOver(diagram, owner))
        return;
    m_lastPoint.reset();
    m_pointerUsed = false;
    _addMenu(entries, anchor, Side::Below);
}

void KXMenuEventDiagram::selectFirstItem()
{
    const std::vector<KXMenu*> menus = getMenus();
    if (!menus.empty())
        menus.back()->setCurrentIndex(menus.back()->obtainNextIndex(-1, 1));
}

void KXMenuEventDiagram::_removeContent() { _closeDeeperThan(0); }

bool KXMenuEventDiagram::isOpen() const { return !getMenus().empty(); }

std::vector<KXMenu*> KXMenuEventDiagram::getMenus() const
{
    std::vector<KXMenu*> menus;
    for (UXObject* child : getChildren()) {
        if (auto* menu = dynamic_cast<KXMenu*>(child))
            menus.push_back(menu);
    }
    return menus;
}

std::string KXMenuEventDiagram::customSerializeTypeID() { return "KXMenuEventDiagram"; }

void KXMenuEventDiagram::_addMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor, Side side)
{
    auto* menu = new KXMenu;
    menu->setEntries(entries);
    const UXRect bounds = getBoundingRect();
    const bool isMirrored = isRightToLeft();
    const UXRect frame = placeFrame(menu->getWantedSize(), isMirrored ? uxMirrorRect(anchor, bounds) : anchor,
                                    bounds, side == Side::Beside);
    menu->setFrameRect(isMirrored ? uxMirrorRect(frame, bounds) : frame);
    addChild(menu);
}

void KXMenuEventDiagram::_openSubMenu(KXMenu* menu, int index)
{
    KXMenuItem* item = menu->getItem(index);
    if (!item || !item->hasSubMenu())
        return;
    const UXRect row = item->translateRectToParent(item->getBoundingRect(), this);
    const std::vector<KXMenuEntry> entries = item->getEntry().entries;
    _addMenu(entries, uxInflateRect(row, -subMenuOverlap, 0), Side::Beside);
}

void KXMenuEventDiagram::_closeDeeperThan(std::size_t depth)
{
    const UXObjectWatcher self(this);
    while (self.isAlive()) {
        const std::vector<KXMenu*> menus = getMenus();
        if (menus.size() <= depth)
            return;
        delete menus.back();
    }
}

std::size_t KXMenuEventDiagram::_obtainDepthAt(UXPoint point) const
{
    const std::vector<KXMenu*> menus = getMenus();
    std::size_t depth = menus.size();
    while (depth > 0 && !menus[depth - 1]->ptInRect(translatePointToChild(point, menus[depth - 1])))
        --depth;
    return depth;
}

void KXMenuEventDiagram::_pointAt(UXPoint point)
{
    // 1. A pointer that rests has no say against the keys.
    const std::optional<UXPoint> last = std::exchange(m_lastPoint, point);
    if (last == point)
        return;
    const std::vector<KXMenu*> menus = getMenus();
    const std::size_t depth = _obtainDepthAt(point);
    if (depth == 0) {
        if (!menus.empty())
            menus.back()->setCurrentIndex(-1);
        return;
    }

    // 2. The sub-menu of the row stays, and so does one that the pointer crosses other rows to get to.
    KXMenu* menu = menus[depth - 1];
    const int index = menu->obtainIndexAt(translatePointToChild(point, menu));
    m_pointerUsed = m_pointerUsed || index >= 0;
    const UXObjectWatcher self(this), target(menu);
    if (depth < menus.size()) {
        const bool stays = index == menu->getCurrentIndex() ||
                           (last && movesTowards(*last, point, menus[depth]->getFrameRect()));
        _closeDeeperThan(stays ? depth + 1 : depth);
        if (stays)
            return;
    }

    // 3. Any other row becomes the current one.
    if (self.isAlive() && target.isAlive() && index != menu->getCurrentIndex()) {
        menu->setCurrentIndex(index);
        if (self.isAlive() && target.isAlive())
            _openSubMenu(menu, index);
    }
}

void KXMenuEventDiagram::_choose(KXMenu* menu, int index, const UXEvent& event)
{
    const KXMenuItem* item = menu->getItem(index);
    if (!item || !item->canBeChosen())
        return;
    const UXObjectWatcher self(this), target(menu);
    if (item->hasSubMenu()) {
        // One that the pointer was on its way to gives way; the row's own stays.
        const std::vector<KXMenu*> menus = getMenus();
        const bool opens = menus.back() == menu || index != menu->getCurrentIndex();
        if (opens)
            _closeDeeperThan(static_cast<std::size_t>(std::ranges::find(menus, menu) - menus.begin()) + 1);
        if (opens && self.isAlive() && target.isAlive())
            menu->setCurrentIndex(index);
        if (opens && self.isAlive() && target.isAlive())
            _openSubMenu(menu, index);
        return;
    }
    event.postAction(item->getEntry().action);
    closeMenu();
}

bool KXMenuEventDiagram::customMouseDown(const UXEvent& event, bool&)
{
    if (!isOpen())
        return false;
    _keepRelease();
    m_pointerUsed = true;
    if (_obtainDepthAt(event.getMousePoint()) == 0)
        closeMenu();
    else
        _pointAt(event.getMousePoint());
    return true;
}

bool KXMenuEventDiagram::customMouseMove(const UXEvent& event, bool&)
{
    if (!isOpen())
        return false;
    _pointAt(event.getMousePoint());
    return true;
}

bool KXMenuEventDiagram::customMouseDragging(const UXEvent& event, bool&)
{
    const bool keeps = _keepsRelease() || isOpen();
    if (isOpen())
        _pointAt(event.getMousePoint());
    return keeps;
}

bool KXMenuEventDiagram::customMouseUp(const UXEvent& event, bool&)
{
    const bool keepsRelease = _takeRelease();
    if (!isOpen()) {
        if (keepsRelease)
            _pointBehindLater(event); // the press has closed the menu
        return keepsRelease;
    }
    const std::size_t depth = _obtainDepthAt(event.getMousePoint());
    if (depth > 0 && m_pointerUsed && !event.containsEventKey(UXEventKey::RightButton)) {
        KXMenu* menu = getMenus()[depth - 1];
        const UXObjectWatcher self(this);
        _choose(menu, menu->obtainIndexAt(translatePointToChild(event.getMousePoint(), menu)), event);
        if (self.isAlive() && !isOpen())
            _pointBehindLater(event);
    }
    return true;
}

/** With the menu gone, the pointer is over what was behind it, and need not move for that to know. */
void KXMenuEventDiagram::_pointBehindLater(const UXEvent& event) const
{
    UXEvent move;
    move.setControl(event.getControl());
    move.setControlPoint(event.getControlPoint());
    move.setMousePoint(globalDiagramSpaceToDiagramSpace(event));
    event.postAction([served = UXObjectWatcher(getActiveDiagram()), move] {
        if (auto* diagram = static_cast<UXDiagram*>(served.getObject()))
            diagram->mouseMove(move);
    });
}

bool KXMenuEventDiagram::customMouseWheel(const UXEvent& event, bool&)
{
    if (!isOpen())
        return false;
    const std::size_t depth = _obtainDepthAt(event.getMousePoint());
    if (depth > 0 && depth == getMenus().size())
        getMenus().back()->scroll(
            uxSaturateToInt(std::round(event.getWheelDelta().y * rowsPerWheelStep * rowExtent)));
    return true;
}

bool KXMenuEventDiagram::customKeyDown(const UXEvent& event, bool&)
{
    const std::vector<KXMenu*> menus = getMenus();
    if (menus.empty())
        return false;
    _answerKey(menus.back(), event);
    return true;
}

void KXMenuEventDiagram::_answerKey(KXMenu* menu, const UXEvent& event)
{
    const int current = menu->getCurrentIndex();
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Down:
        return menu->setCurrentIndex(menu->obtainNextIndex(current, 1));
    case UXKeyCode::Up:
        return menu->setCurrentIndex(menu->obtainNextIndex(current, -1));
    case UXKeyCode::Home:
    case UXKeyCode::PageUp:
        return menu->setCurrentIndex(menu->obtainNextIndex(-1, 1));
    case UXKeyCode::End:
    case UXKeyCode::PageDown:
        return menu->setCurrentIndex(menu->obtainNextIndex(-1, -1));
    case UXKeyCode::Right:
        if (const KXMenuItem* item = menu->getItem(current); !item || !item->hasSubMenu())
            return;
        [[fallthrough]];
    case UXKeyCode::Enter:
    case UXKeyCode::Space: {
        const UXObjectWatcher self(this);
        const std::size_t depth = getMenus().size();
        _choose(menu, current, event);
        if (self.isAlive() && getMenus().size() > depth)
            selectFirstItem();
        return;
    }
    case UXKeyCode::Left:
        if (getMenus().size() > 1)
            _closeDeeperThan(getMenus().size() - 1);
        return;
    case UXKeyCode::Escape:
        return _goBack();
    case UXKeyCode::Tab:
        return closeMenu();
    default:
        break;
    }
    if (!event.containsEventKey(UXEventKey::Ctrl) && !event.containsEventKey(UXEventKey::Alt)) {
        const int index = menu->obtainIndexByText(event.getKeyText());
        if (index >= 0)
            menu->setCurrentIndex(index);
    }
}

/** Closes the last menu, and with the only one all. */
void KXMenuEventDiagram::_goBack()
{
    const std::size_t depth = getMenus().size();
    if (depth > 1)
        _closeDeeperThan(depth - 1);
    else
        closeMenu();
}
