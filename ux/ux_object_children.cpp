#include "ux/ux_object.h"

#include "ux/ux_assert.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_diagram.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>

namespace {

/** @return whether more objects than levels stand inside one another, object being the first */
bool isDeeperThan(int levels, const UXObject& object)
{
    return levels < 1 || std::ranges::any_of(object.getChildren(), [levels](const UXObject* child) {
               return isDeeperThan(levels - 1, *child);
           });
}

} // namespace

bool UXObject::hasParent(UXObject* object) const
{
    for (const UXObject* outer = m_parent; outer; outer = outer->m_parent) {
        if (outer == object)
            return true;
    }
    return false;
}

std::uint64_t UXObject::getChildrenCount() const { return m_children.size(); }

UXObject* UXObject::getChild(std::uint64_t index) const
{
    return index < m_children.size() ? m_children[static_cast<std::size_t>(index)] : nullptr;
}

void UXObject::addChild(UXObject* child) { _takeChild(child, m_children.size()); }

void UXObject::addChild(UXObject* child, int position)
{
    _takeChild(child, static_cast<std::uint64_t>(std::max(position, 0)));
}

void UXObject::removeChild(UXObject* child)
{
    if (_hasChild(child))
        _releaseChild(child);
}

void UXObject::removeChild(std::uint64_t index) { removeChild(getChild(index)); }

void UXObject::removeChildren()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    while (watcher.isAlive() && !m_children.empty())
        removeChild(m_children.back());
}

void UXObject::clearChildren()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    while (watcher.isAlive() && !m_children.empty())
        delete m_children.back();
}

void UXObject::removeChildAndAddToParent(UXObject* child, UXObject* parent)
{
    if (!uxAssert(_hasChild(child)) || !uxAssert(parent))
        return;
    parent->addChild(child);
}

void UXObject::bringToFront()
{
    if (m_parent)
        m_parent->bringChildToFront(this);
}

void UXObject::bringToBack()
{
    if (m_parent)
        m_parent->bringChildToBack(this);
}

void UXObject::bringUpper()
{
    if (m_parent)
        m_parent->bringChildUpper(this);
}

void UXObject::bringLower()
{
    if (m_parent)
        m_parent->bringChildLower(this);
}

void UXObject::bringChildToFront(UXObject* child)
{
    if (_hasChild(child))
        _moveChild(child, m_children.size() - 1);
}

void UXObject::bringChildToBack(UXObject* child)
{
    if (_hasChild(child))
        _moveChild(child, 0);
}

void UXObject::bringChildOverChild(UXObject* child, UXObject* other)
{
    if (!_hasChild(child) || !_hasChild(other) || child == other)
        return;
    // Taking the child out first moves what lies in front of it one place back.
    const std::size_t index = _obtainChildIndex(other);
    _moveChild(child, _obtainChildIndex(child) < index ? index : index + 1);
}

void UXObject::bringChildUnderChild(UXObject* child, UXObject* other)
{
    if (!_hasChild(child) || !_hasChild(other) || child == other)
        return;
    const std::size_t index = _obtainChildIndex(other);
    _moveChild(child, _obtainChildIndex(child) < index ? index - 1 : index);
}

void UXObject::bringChildUpper(UXObject* child)
{
    if (_hasChild(child))
        _moveChild(child, std::min(_obtainChildIndex(child) + 1, m_children.size() - 1));
}

void UXObject::bringChildLower(UXObject* child)
{
    if (!_hasChild(child))
        return;
    const std::size_t index = _obtainChildIndex(child);
    _moveChild(child, index == 0 ? 0 : index - 1);
}

void UXObject::detachChildren()
{
    for (UXObject* child : m_children)
        child->m_parent = nullptr;
    m_children.clear();
}

bool UXObject::_hasRoomFor(const UXObject& child) const
{
    int room = uxDeepestObjectNesting;
    for (const UXObject* outer = this; outer; outer = outer->m_parent)
        --room;
    return !isDeeperThan(room, child);
}

std::size_t UXObject::_obtainChildIndex(const UXObject* child) const
{
    // From the end: where all children go, each is the last one.
    const auto found = std::find(m_children.rbegin(), m_children.rend(), child);
    return static_cast<std::size_t>(m_children.rend() - found) - 1;
}

void UXObject::_takeChild(UXObject* child, std::uint64_t index)
{
    if (!uxAssert(child) || !uxAssert(child != this && !hasParent(child)) ||
        !uxAssert(!dynamic_cast<UXDiagram*>(child)) || !uxAssert(_hasChild(child) || _hasRoomFor(*child)))
        return;
    if (_hasChild(child)) {
        _moveChild(child, static_cast<std::size_t>(std::min<std::uint64_t>(index, m_children.size() - 1)));
        return;
    }

    const UXNotificationScope scope;
    UXObjectWatcher self(this), taken(child);
    if (child->m_parent) {
        // Leaving a parent calls hooks: afterwards both objects may be gone, and either may stand elsewhere.
        child->m_parent->removeChild(child);
        if (!self.isAlive() || !taken.isAlive() || child->m_parent || hasParent(child) ||
            !uxAssert(_hasRoomFor(*child)))
            return;
    }

    const auto place = static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(index, m_children.size()));
    m_children.insert(m_children.begin() + place, child);
    for (UXChildWalk* walk = m_childWalks; walk; walk = walk->m_outer)
        walk->_childAdded(static_cast<std::size_t>(place));
    child->m_parent = this;
    child->_noteDescendantRequiresLayout();
    // What became dirty while nobody could be told is part of what is dirty now.
    child->clearDirtyRect();
    child->invalidate();
    if (self.isAlive())
        requireLayout();
}

void UXObject::_releaseChild(UXObject* child)
{
    const UXNotificationScope scope;
    const UXRect place = child->_obtainPaintedPlace();
    const std::size_t index = _obtainChildIndex(child);
    m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
    for (UXChildWalk* walk = m_childWalks; walk; walk = walk->m_outer)
        walk->_childRemoved(child, index);
    child->m_parent = nullptr;
    UXObjectWatcher watcher(this);
    addDirtyRect(place);
    if (watcher.isAlive())
        requireLayout();
}

void UXObject::_moveChild(UXObject* child, std::size_t index)
{
    const std::size_t from = _obtainChildIndex(child);
    if (from == index)
        return;
    const auto at = [this](std::size_t i) { return m_children.begin() + static_cast<std::ptrdiff_t>(i); };
    if (from < index)
        std::rotate(at(from), at(from + 1), at(index + 1));
    else
        std::rotate(at(index), at(from), at(from + 1));
    for (UXChildWalk* walk = m_childWalks; walk; walk = walk->m_outer)
        walk->_childMoved(child, from, index);
    // A layout pass that is under way misses a child that is moved to the part already passed: the next one
    // has to find it.
    if (m_childWalks)
        child->_noteDescendantRequiresLayout();
    child->invalidate();
}
