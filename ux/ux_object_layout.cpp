#include "ux/ux_object.h"

#include "ux/ux_assert.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <utility>

namespace {

/** The time between two frames at 60 frames in a second. */
constexpr std::chrono::microseconds framePeriod{16667};

} // namespace

/** The layout of one object while it runs. Where an exception of the host's ends it, what is left to lay out
 * is found by the next pass. */
class UXObject::LayoutScope {
public:
    explicit LayoutScope(UXObject& object) : m_watcher(&object) { object.m_layouting = true; }
    ~LayoutScope()
    {
        UXObject* object = m_watcher.getObject();
        if (!object)
            return;
        object->m_layouting = false;
        object->m_descendantRequiresLayout = object->m_descendantRequiresLayout || !m_isFinished;
    }
    LayoutScope(const LayoutScope&) = delete;
    LayoutScope& operator=(const LayoutScope&) = delete;

    void finish() { m_isFinished = true; }

private:
    UXObjectWatcher m_watcher;
    bool m_isFinished = false;
};

void UXObject::requireLayoutMarked() {}

void UXObject::customLayout() { layoutAlignedChildren(getContentRect()); }

bool UXObject::getRequireToVerifyLayout() const { return m_requireToVerifyLayout; }

void UXObject::setRequireToVerifyLayout(bool requireToVerifyLayout)
{
    if (requireToVerifyLayout)
        requireLayout();
    else
        m_requireToVerifyLayout = false;
}

void UXObject::setRequireToVerifyLayout(bool requireToVerifyLayout, bool repaint)
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    setRequireToVerifyLayout(requireToVerifyLayout);
    if (watcher.isAlive() && repaint)
        invalidate();
}

void UXObject::beginUpdate() { ++m_updateDepth; }

void UXObject::endUpdate()
{
    if (!uxAssert(m_updateDepth > 0) || --m_updateDepth > 0)
        return;
    const UXNotificationScope scope;
    const bool layoutWaits = std::exchange(m_layoutWaits, false);
    const bool repaintWaits = std::exchange(m_repaintWaits, false);

    UXObjectWatcher watcher(this);
    if (layoutWaits)
        layout();
    if (watcher.isAlive())
        flushDirtyRect();
    if (watcher.isAlive() && repaintWaits)
        repaintDirtyRect();
}

bool UXObject::isUpdating() const { return _obtainOutermostBatch() != nullptr; }

bool UXObject::requireLayout()
{
    if (m_requireToVerifyLayout)
        return false;
    m_requireToVerifyLayout = true;
    _noteDescendantRequiresLayout();
    requireLayoutMarked();
    return true;
}

void UXObject::requireLayoutOfAll()
{
    const UXObjectWatcher watcher(this);
    setRequireToVerifyLayout(true);
    if (!watcher.isAlive())
        return;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next())
        child->requireLayoutOfAll();
}

void UXObject::setDirection(UXDirection direction)
{
    if (m_direction == direction)
        return;
    m_direction = direction;
    const UXNotificationScope scope;
    const UXObjectWatcher watcher(this);
    requireLayoutOfAll();
    if (watcher.isAlive())
        invalidate();
}

void UXObject::layout()
{
    if (UXObject* batch = _obtainOutermostBatch()) {
        batch->m_layoutWaits = true;
        return;
    }
    if (m_layouting || (!m_requireToVerifyLayout && !m_descendantRequiresLayout))
        return;
    if (_shouldWaitForNextFrame()) {
        // The pass from the root that came by too early is followed by others, which have to find the way.
        _noteDescendantRequiresLayout();
        return;
    }

    const UXNotificationScope notifications;
    const UXObjectWatcher watcher(this);
    UXLayoutRounds rounds;
    do
        _layoutOnce();
    while (rounds.next() && watcher.isAlive());
}

/** Does what is marked now. */
void UXObject::_layoutOnce()
{
    if (!m_requireToVerifyLayout && !m_descendantRequiresLayout)
        return;
    const UXObjectWatcher watcher(this);
    LayoutScope scope(*this);
    if (m_requireToVerifyLayout) {
        customLayout();
        if (!watcher.isAlive())
            return;
        m_requireToVerifyLayout = false;
    }

    _layoutChildren();
    if (!watcher.isAlive())
        return;

    if (m_autoResize) {
        // The size is the outcome of this pass and not a reason for another one.
        const bool required = m_requireToVerifyLayout;
        autoResize();
        if (!watcher.isAlive())
            return;
        m_requireToVerifyLayout = required;
    }
    scope.finish();
}

void UXObject::autoResize()
{
    UXPoint corner;
    bool hasChild = false;
    for (const UXObject* child : m_children) {
        if (!child->getVisible() || child->getAlign() != UXAlign::None)
            continue;
        const UXPoint childCorner = child->getRect().getBottomRight();
        corner = {std::max(corner.x, childCorner.x), std::max(corner.y, childCorner.y)};
        hasChild = true;
    }
    if (!hasChild)
        return;
    const UXPoint size = corner + UXPoint{m_padding.right, m_padding.bottom};
    setRect({getRect().x, getRect().y, std::max(size.x, 0), std::max(size.y, 0)});
}

void UXObject::beginLayoutWithFPSControl()
{
    if (m_fpsControlDepth++ == 0)
        m_lastFrame = {};
}

void UXObject::endLayoutWithFPSControl()
{
    if (!uxAssert(m_fpsControlDepth > 0) || --m_fpsControlDepth > 0)
        return;
    if (std::exchange(m_frameWaits, false))
        layout();
}

bool UXObject::isLayoutingWithFPSControl() const { return m_fpsControlDepth > 0; }

void UXObject::layoutAlignedChildren(UXRect area)
{
    UXChildWalk walk(this);
    while (UXObject* child = walk.next()) {
        if (child->getAlign() != UXAlign::None)
            child->setRect(child->_obtainAlignedRect(area));
    }
}

UXObject* UXObject::_obtainOutermostBatch() const
{
    const UXObject* batch = nullptr;
    for (const UXObject* object = this; object; object = object->m_parent) {
        if (object->m_updateDepth > 0)
            batch = object;
    }
    return const_cast<UXObject*>(batch);
}

/** Lets a pass from the root find its way here. */
void UXObject::_noteDescendantRequiresLayout()
{
    if (!m_requireToVerifyLayout && !m_descendantRequiresLayout)
        return;
    for (UXObject* outer = m_parent; outer && !outer->m_descendantRequiresLayout; outer = outer->m_parent)
        outer->m_descendantRequiresLayout = true;
}

/** Marks the parents because the size changed. A parent that is just being laid out has set the size itself,
 * or is about to see it, and those above it have nothing to do with that. */
void UXObject::_requireLayoutOfParents()
{
    UXObjectWatcher outer(m_parent);
    while (outer.isAlive() && !outer.getObject()->m_layouting) {
        const UXObjectWatcher next(outer.getObject()->m_parent);
        outer.getObject()->requireLayout();
        outer = next;
    }
}

bool UXObject::_shouldWaitForNextFrame()
{
    if (m_fpsControlDepth == 0)
        return false;
    const auto now = std::chrono::steady_clock::now();
    m_frameWaits = now - m_lastFrame < framePeriod;
    if (!m_frameWaits)
        m_lastFrame = now;
    return m_frameWaits;
}

void UXObject::_layoutChildren()
{
    if (!std::exchange(m_descendantRequiresLayout, false))
        return;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next()) {
        if (child->getVisible())
            child->layout();
    }
}

UXRect UXObject::_obtainAlignedRect(const UXRect& area) const
{
    UXRect rect = getRect();
    switch (m_align) {
    case UXAlign::None:
        return rect;
    case UXAlign::Center:
        rect.x = uxSaturateToInt(area.x + (std::int64_t{area.width} - rect.width) / 2);
        rect.y = uxSaturateToInt(area.y + (std::int64_t{area.height} - rect.height) / 2);
        return rect;
    case UXAlign::Client:
        return area;
    case UXAlign::Left:
        return {area.x, area.y, rect.width, area.height};
    case UXAlign::Top:
        return {area.x, area.y, area.width, rect.height};
    case UXAlign::Right:
        return {uxSaturateToInt(std::int64_t{uxMaxX(area)} - rect.width), area.y, rect.width, area.height};
    case UXAlign::Bottom:
        return {area.x, uxSaturateToInt(std::int64_t{uxMaxY(area)} - rect.height), area.width, rect.height};
    }
    return rect;
}
