#include "ux/ux_selectable_object.h"

#include "ux/ux_child_walk.h"
#include "ux/ux_color_functions.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>

namespace {

/** @return color with its lightness, from 0 to 1, changed by amount */
UXColor shiftLightness(const UXColor& color, double amount)
{
    double hue = 0, saturation = 0, lightness = 0;
    uxColorToHSL(color, hue, saturation, lightness);
    UXColor shifted = uxHSLToColor(hue, saturation, std::clamp(lightness + amount, 0.0, 1.0));
    shifted.alpha = color.alpha;
    return shifted;
}

} // namespace

UXSelectableObject::UXSelectableObject()
{
    setHighlightable(true);
    setSelectable(true);
    _followColor();
}

UXSelectableObject::~UXSelectableObject() = default;

void UXSelectableObject::customSerialize()
{
    UXObject::customSerialize();
    serializeUXColor("m_highlightColor", m_highlightColor);
    serializeUXColor("m_selectedColor", m_selectedColor);
}

std::string UXSelectableObject::customSerializeTypeID() { return "UXSelectableObject"; }

bool UXSelectableObject::customDeserialize()
{
    const bool complete = UXObject::customDeserialize();
    // Both are read before either is set, which a host hears of that may destroy the object.
    UXColor highlight, selected;
    const bool hasHighlight = deserializeUXColor("m_highlightColor", highlight);
    const bool hasSelected = deserializeUXColor("m_selectedColor", selected);
    const UXObjectWatcher watcher(this);
    if (hasHighlight)
        setHighlightColor(highlight);
    if (hasSelected && watcher.isAlive())
        setSelectedColor(selected);
    return complete && hasHighlight && hasSelected;
}

void UXSelectableObject::setColor(const UXColor& color)
{
    UXObjectWatcher watcher(this);
    UXObject::setColor(color);
    if (watcher.isAlive())
        _followColor();
}

void UXSelectableObject::setSelected(bool selected) { setSelected(selected, true); }

void UXSelectableObject::setSelected(bool selected, bool notify)
{
    if (!storeSelected(selected))
        return;
    if (notify)
        selectionChanged();
    else
        invalidate();
}

void UXSelectableObject::setHighlightColor(const UXColor& color)
{
    m_highlightColor = color;
    m_hasHighlightColor = true;
    invalidate();
}

UXColor UXSelectableObject::getHighlightColor() const { return m_highlightColor; }

void UXSelectableObject::setSelectedColor(const UXColor& color)
{
    m_selectedColor = color;
    m_hasSelectedColor = true;
    invalidate();
}

UXColor UXSelectableObject::getSelectedColor() const { return m_selectedColor; }

void UXSelectableObject::setSelectionToAllChildren(bool selected)
{
    UXChildWalk walk(this);
    while (UXObject* child = walk.next())
        child->setSelected(selected);
}

UXColor UXSelectableObject::obtainStateColor() const
{
    return getSelected() ? getSelectedColor() : getHighlighted() ? getHighlightColor() : getColor();
}

void UXSelectableObject::highlightChanged() { invalidate(); }

void UXSelectableObject::selectionChanged() { invalidate(); }

bool UXSelectableObject::customMouseDown(const UXEvent&, bool&) { return getSelectable(); }

bool UXSelectableObject::customMouseUp(const UXEvent& event, bool&)
{
    if (!getSelectable() || !getMousePressing())
        return false;
    UXObjectWatcher watcher(this);
    if (triggerEventResponder(UXEventResponderType::Select, event) || !watcher.isAlive())
        return true;
    setSelected(!getSelected());
    return true;
}

bool UXSelectableObject::customMouseEnter(const UXEvent&, bool&)
{
    setHighlighted(true);
    return false;
}

bool UXSelectableObject::customMouseLeave(const UXEvent&, bool&)
{
    setHighlighted(false);
    return false;
}

/** The two clicks of a double click have turned the selection around twice; it ends selected. */
bool UXSelectableObject::customMouseDoubleClick(const UXEvent&, bool&)
{
    if (!getSelectable())
        return false;
    setSelected(true);
    return true;
}

void UXSelectableObject::_followColor()
{
    constexpr double contrast = 0.12;
    if (!m_hasHighlightColor)
        m_highlightColor = shiftLightness(getColor(), contrast);
    if (!m_hasSelectedColor)
        m_selectedColor = shiftLightness(getColor(), -contrast);
}
