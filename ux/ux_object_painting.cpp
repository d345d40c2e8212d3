#include "ux/ux_object.h"

#include "ux/ux_child_walk.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config_watcher.h"

#include <utility>

UXRect UXObject::customDirtyRect() { return getBoundingRect(); }

void UXObject::addDirtyRect(UXRect rect)
{
    if (m_visible && m_dirtyRegion.add(rect))
        flushDirtyRect();
}

void UXObject::clearDirtyRect() { m_dirtyRegion.clear(); }

void UXObject::flushDirtyRect()
{
    if (m_updateDepth > 0 || !m_parent || m_dirtyRegion.isEmpty())
        return;
    const UXNotificationScope scope;
    const UXDirtyRegion region = std::exchange(m_dirtyRegion, {});
    UXObjectWatcher watcher(this);
    for (const UXRect& rect : region.getRects()) {
        if (!watcher.isAlive() || !m_parent)
            return;
        m_parent->addDirtyRect(translateRectToParent(rect, m_parent));
    }
}

void UXObject::invalidateChildren()
{
    const UXNotificationScope scope;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next()) {
        if (child->getVisible())
            child->invalidate();
    }
}

void UXObject::invalidate() { addDirtyRect(customDirtyRect()); }

void UXObject::repaintDirtyRect()
{
    if (UXObject* batch = _obtainOutermostBatch()) {
        batch->m_repaintWaits = true;
        return;
    }
    UXObjectWatcher watcher(this);
    flushDirtyRect();
    if (watcher.isAlive() && m_parent)
        m_parent->repaintDirtyRect();
}

void UXObject::repaint()
{
    const UXNotificationScope scope;
    UXObjectWatcher watcher(this);
    invalidate();
    if (watcher.isAlive())
        repaintDirtyRect();
}

void UXObject::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (m_children.empty())
        return;
    const UXPaintConfigWatcher watcher(config);
    UXChildWalk walk(this);
    while (UXObject* child = watcher.isGone() ? nullptr : walk.next()) {
        if (!child->getVisible())
            continue;
        const UXRect childRect = translateRectToChild(dirtyRect, child);
        if (child->inRect(childRect))
            child->paint(config, childRect);
    }
}

/** @return what the object paints on now, in the parent's space; empty where it paints nothing */
UXRect UXObject::_obtainPaintedPlace()
{
    return m_visible && m_parent ? translateRectToParent(customDirtyRect(), m_parent) : UXRect{};
}

/** Has a place that the object has left painted anew. It goes to the parent at once: an open batch of the
 * object would translate it from where the object is later. */
void UXObject::_invalidateInParent(const UXRect& place)
{
    if (m_parent)
        m_parent->addDirtyRect(place);
}
