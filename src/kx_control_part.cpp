#include "kx_control_part.h"

#include "kx_accessible_part.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <utility>

namespace {

constexpr double ringWidth = 2;
constexpr int ringReach = 3; // of the ring beyond what it is around
constexpr double disabledShare = 0.45;

} // namespace

KXControlPart::KXControlPart()
{
    m_textProperty.font.size = 13;
    m_textProperty.textColor = UXColor(60, 60, 66);
    setShowsFocus(true);
}

KXControlPart::~KXControlPart() { setParent(nullptr); }

void KXControlPart::setEnabled(bool enabled)
{
    if (m_enabled == enabled)
        return;
    m_enabled = enabled;
    invalidate();
}

void KXControlPart::setAccentColor(const UXColor& color)
{
    if (m_accentColor == color)
        return;
    m_accentColor = color;
    invalidate();
}

void KXControlPart::setTextProperty(const UXTextProperty& property)
{
    UXTextProperty line = property;
    line.lineMode = UXTextProperty().lineMode;
    if (m_textProperty == line)
        return;
    m_textProperty = std::move(line);
    invalidate();
}

bool KXControlPart::isFocused() const
{
    const UXDiagram* diagram = uxObtainDiagram(getParent());
    return diagram && diagram->getFocusedObject() == this;
}

bool KXControlPart::takeKeys()
{
    const UXNotificationScope scope;
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || !m_enabled || !getVisible() || uxIsEmptyRect(getRect()))
        return false;
    m_pressed = false;
    diagram->setFocusedObject(this);
    invalidate();
    return true;
}

void KXControlPart::_showRing()
{
    if (!m_pressed)
        return;
    m_pressed = false;
    invalidate();
}

UXColor KXControlPart::_obtainShownColor(UXColor color) const
{
    if (!m_enabled)
        color.alpha *= disabledShare;
    return color;
}

void KXControlPart::_paintRing(UXPainter& painter, const UXDoubleRect& rect, double radius) const
{
    if (!_showsRing())
        return;
    painter.setColor(m_accentColor);
    painter.setLineWidth(ringWidth);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(rect, ringWidth, ringWidth), radius + ringWidth);
    painter.stroke();
}

UXRect KXControlPart::customDirtyRect() { return uxInflateRect(getBoundingRect(), ringReach, ringReach); }

std::unique_ptr<UXAccessibleNode> KXControlPart::createAccessibleNode()
{
    return std::make_unique<KXAccessiblePart>(*this);
}

void KXControlPart::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintPart(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

bool KXControlPart::customMouseDown(const UXEvent& event, bool& stop)
{
    m_pressed = true;
    invalidate();
    const UXObjectWatcher self(this);
    UXObject::customMouseDown(event, stop);
    return self.isAlive() && m_enabled;
}

bool KXControlPart::customMouseUp(const UXEvent& event, bool& stop)
{
    invalidate();
    return UXObject::customMouseUp(event, stop);
}

bool KXControlPart::customMouseEnter(const UXEvent& event, bool& stop)
{
    invalidate();
    return UXObject::customMouseEnter(event, stop);
}

bool KXControlPart::customMouseLeave(const UXEvent& event, bool& stop)
{
    invalidate();
    return UXObject::customMouseLeave(event, stop);
}
