#include "kx_chart_toolbox_item.h"

#include "kx_accessible_button.h"
#include "kx_chart_toolbox.h"
#include "kx_menu_style.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

// Hosts may refer to it, on Windows too
constexpr int KXChartToolboxItem::extent;

KXChartToolboxItem::KXChartToolboxItem() : UXHintDelegate(this)
{
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        auto* toolbox = dynamic_cast<KXChartToolbox*>(getParent());
        return toolbox && toolbox->activateItem(this, event);
    });
}

KXChartToolboxItem::~KXChartToolboxItem() { setParent(nullptr); }

std::unique_ptr<UXAccessibleNode> KXChartToolboxItem::createAccessibleNode()
{
    return std::make_unique<KXAccessibleButton>(*this, m_entry.text, m_entry.enabled);
}

void KXChartToolboxItem::setEntry(const KXMenuEntry& entry)
{
    m_entry = entry;
    setCursor(entry.enabled ? UXCursor::PointingHand : UXCursor::AsParent);
    invalidate();
}

void KXChartToolboxItem::setMenuOpen(bool menuOpen) { _set(m_menuOpen, menuOpen); }

void KXChartToolboxItem::setFocused(bool focused) { _set(m_focused, focused); }

void KXChartToolboxItem::_set(bool& member, bool value)
{
    if (member == value)
        return;
    member = value;
    invalidate();
}

UXRect KXChartToolboxItem::obtainHintArea(UXPoint) { return getBoundingRect(); }

std::string KXChartToolboxItem::customSerializeTypeID() { return "KXChartToolboxItem"; }

void KXChartToolboxItem::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintButton(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXChartToolboxItem::_paintButton(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    const bool pressed = m_menuOpen || m_entry.checked || (m_entry.enabled && getMousePressing());
    if (pressed || (m_entry.enabled && getMouseOvering())) {
        painter.setColor(pressed ? kxMenuPressedColor : kxMenuHoverColor);
        uxAddRoundRectanglePath(painter, bounds, kxMenuHoverRadius);
        painter.fill();
    }
    UXColor color = kxMenuIconColor;
    if (!m_entry.enabled)
        color.alpha = 0.45;
    const double inset = (kxMenuIconExtent - extent) / 2;
    kxDrawMenuIcon(painter, m_entry.icon, uxInflateDoubleRect(bounds, inset, inset), color);
    if (m_focused) {
        painter.setColor(kxMenuFocusColor);
        painter.setLineWidth(2);
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -1.0, -1.0), kxMenuHoverRadius - 1);
        painter.stroke();
    }
}

bool KXChartToolboxItem::customMouseDown(const UXEvent&, bool&)
{
    hideHint();
    invalidate();
    return false;
}

bool KXChartToolboxItem::customMouseUp(const UXEvent&, bool&)
{
    invalidate();
    return false;
}

bool KXChartToolboxItem::customMouseEnter(const UXEvent& event, bool&)
{
    invalidate();
    if (m_entry.text.empty())
        return false;
    UXHintInfo info;
    info.title = m_entry.text;
    UXEvent hintEvent = event;
    showHint(getTranslatedPointFromEvent(event), &hintEvent, &info);
    return false;
}

bool KXChartToolboxItem::customMouseLeave(const UXEvent&, bool&)
{
    invalidate();
    hideHint();
    return false;
}
