#include "ux/ux_object.h"

#include "ux/ux_child_walk.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_path_resolver.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_space.h"

#include <algorithm>

namespace {

/** @return rect less the padding; the corner moves in, and no extent goes below 0 */
UXRect insetRect(const UXRect& rect, const UXPadding& padding)
{
    const std::int64_t left = padding.left, top = padding.top;
    UXRect inner{uxSaturateToInt(rect.x + left), uxSaturateToInt(rect.y + top),
                 uxSaturateToInt(rect.width - left - padding.right),
                 uxSaturateToInt(rect.height - top - padding.bottom)};
    inner.width = std::max(inner.width, 0);
    inner.height = std::max(inner.height, 0);
    return inner;
}

} // namespace

UXObject::UXObject() : UXJsonObject(uxObtainObjectPathResolver()) {}

UXObject::~UXObject()
{
    while (m_watchers)
        m_watchers->_forget();
    for (UXChildWalk* walk = m_childWalks; walk; walk = walk->m_outer)
        walk->m_parent = nullptr;

    if (m_parent)
        m_parent->_releaseChild(this);
    while (!m_children.empty()) {
        UXObject* child = m_children.back();
        m_children.pop_back();
        child->m_parent = nullptr;
        delete child;
    }
}

void UXObject::customSerialize() {}

std::string UXObject::customSerializeTypeID() { return "UXObject"; }

std::string UXObject::customSerializeVersion() { return UXJsonObject::customSerializeVersion(); }

bool UXObject::customDeserialize() { return true; }

void UXObject::highlightChanged() { invalidate(); }

void UXObject::selectionChanged() { invalidate(); }

std::string UXObject::getName() const { return m_name; }

void UXObject::setName(const std::string& name) { m_name = name; }

template <class T>
void UXObject::_updateAndInvalidate(T& member, const T& value)
{
    if (member == value)
        return;
    member = value;
    invalidate();
}

UXColor UXObject::getColor() const { return m_color; }

void UXObject::setColor(const UXColor& color) { _updateAndInvalidate(m_color, color); }

UXColor UXObject::getBorderColor() const { return m_borderColor; }

void UXObject::setBorderColor(const UXColor& color) { _updateAndInvalidate(m_borderColor, color); }

UXColor UXObject::getBackgroundColor() const { return m_backgroundColor; }

void UXObject::setBackgroundColor(const UXColor& color) { _updateAndInvalidate(m_backgroundColor, color); }

bool UXObject::getShowBorder() const { return m_showBorder; }

void UXObject::setShowBorder(bool showBorder) { _updateAndInvalidate(m_showBorder, showBorder); }

void UXObject::setSpace(UXSpace* space)
{
    if (space == getSpace())
        return;
    const UXNotificationScope scope;
    const UXRect place = _obtainPaintedPlace();
    m_space = space ? space->m_self : nullptr;
    UXObjectWatcher watcher(this);
    _invalidateInParent(place);
    if (watcher.isAlive())
        invalidate();
}

UXObject* UXObject::getParent() const { return m_parent; }

void UXObject::setParent(UXObject* parent)
{
    if (parent == m_parent)
        return;
    if (parent)
        parent->addChild(this);
    else
        m_parent->removeChild(this);
}

void UXObject::setPadding(const UXPadding& padding)
{
    if (padding == m_padding)
        return;
    m_padding = padding;
    setRequireToVerifyLayout(true, true);
}

void UXObject::setAlign(UXAlign align)
{
    if (align == m_align)
        return;
    m_align = align;
    if (m_parent)
        m_parent->requireLayout();
}

bool UXObject::getAutoResize() const { return m_autoResize; }

void UXObject::setAutoResize(bool autoResize)
{
    if (autoResize == m_autoResize)
        return;
    m_autoResize = autoResize;
    requireLayout();
}

bool UXObject::getVisible() const { return m_visible; }

void UXObject::setVisible(bool visible)
{
    if (visible == m_visible)
        return;
    const UXNotificationScope scope;
    const UXRect place = _obtainPaintedPlace();
    m_visible = visible;
    if (!visible) {
        clearDirtyRect();
        _invalidateInParent(place);
        return;
    }
    // A pass goes around what is hidden, so the marks in here have yet to be found by the next one.
    _noteDescendantRequiresLayout();
    invalidate();
}

bool UXObject::getHighlightable() const { return m_highlightable; }

void UXObject::setHighlightable(bool highlightable) { m_highlightable = highlightable; }

bool UXObject::getHighlighted() const { return m_highlighted; }

void UXObject::setHighlighted(bool highlighted)
{
    if (highlighted == m_highlighted || (highlighted && !getHighlightable()))
        return;
    m_highlighted = highlighted;
    highlightChanged();
}

bool UXObject::getSelectable() const { return m_selectable; }

void UXObject::setSelectable(bool selectable) { m_selectable = selectable; }

bool UXObject::getSelected() const { return m_selected; }

void UXObject::setSelected(bool selected)
{
    if (storeSelected(selected))
        selectionChanged();
}

bool UXObject::storeSelected(bool selected)
{
    if (selected == m_selected || (selected && !getSelectable()))
        return false;
    m_selected = selected;
    return true;
}

UXRect UXObject::getRect() const { return m_rect; }

void UXObject::setRect(UXRect rect)
{
    if (rect == m_rect)
        return;
    const UXNotificationScope scope;
    const bool sizeChanged = rect.width != m_rect.width || rect.height != m_rect.height;
    const UXRect place = _obtainPaintedPlace();
    m_rect = rect;

    UXObjectWatcher watcher(this);
    _invalidateInParent(place);
    if (watcher.isAlive())
        requireLayout();
    if (watcher.isAlive() && sizeChanged)
        _requireLayoutOfParents();
    if (watcher.isAlive())
        invalidate();
}

UXRect UXObject::getRectExcludePadding() const { return insetRect(getRect(), m_padding); }

UXRect UXObject::getBoundingRect() const
{
    const UXRect rect = getRect();
    return {0, 0, rect.width, rect.height};
}

UXRect UXObject::getBoundingRectIncludeChildren() const
{
    UXRect bounds = getBoundingRect();
    for (UXObject* child : m_children) {
        if (child->getVisible())
            bounds = uxUnionRect(bounds, translateRect(child->getBoundingRectIncludeChildren(), child,
                                                       const_cast<UXObject*>(this)));
    }
    return bounds;
}

UXRect UXObject::getContentRect() const { return insetRect(getBoundingRect(), m_padding); }

bool UXObject::inRect(UXRect rect) const { return uxIntersectsRect(getBoundingRect(), rect); }

bool UXObject::ptInRect(UXPoint point) const { return uxPointInRect(point, getBoundingRect()); }
