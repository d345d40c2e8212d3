#include "kx_chart.h"

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_toolbox.h"
#include "kx_legend.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"

// Pointer, keyboard and linked highlights.

void KXChart::showLinkedHighlightHint(UXHintInfo* info, UXObject* target, UXPoint point, UXControl* control)
{
    const UXNotificationScope scope;
    auto* hint = dynamic_cast<UXHintDelegate*>(this);
    if (hint && info)
        hint->showHintOn(control, target ? translatePoint(point, target, this) : point, info);
}

void KXChart::hideLinkedHighlightHint(UXHintInfo*, UXControl*)
{
    if (auto* hint = dynamic_cast<UXHintDelegate*>(this))
        hint->hideHint();
}

void KXChart::linkedHighlightRequested(KXChartDataUser* user, const KXChartDataPath& path, UXObject* source,
                                       const UXEvent& event)
{
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->requestHighlight(this, user, path, source, event);
}

void KXChart::linkedHighlightCleared(KXChartDataUser*, const KXChartDataPath&, UXObject* source,
                                     const UXEvent&)
{
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->clearHighlight(source);
}

KXHighlightResult KXChart::showLinkedHighlight(const KXChartDataPath& path, UXControl* control)
{
    const UXNotificationScope scope;
    return m_items ? m_items->showLinked(path, control)
                   : KXChartLinkedAction::showLinkedHighlight(path, control);
}

void KXChart::hideLinkedHighlight(UXControl* control)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->setLinked({});
    if (self.isAlive())
        hideLinkedHighlightHint(nullptr, control);
}

bool KXChart::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->press(event);
    return self.isAlive() && UXObject::customMouseDown(event, stop);
}

bool KXChart::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (_wantsToolbox())
        m_toolbox->pointerCame();
    const bool handled = self.isAlive() && UXObject::customMouseMove(event, stop);
    if (self.isAlive() && m_items)
        m_items->hover(event);
    return handled;
}

/** @return whether this is still here and its host wants the strip, which then knows whom to ask */
bool KXChart::_wantsToolbox()
{
    KXChartDataUser* user = obtainLegendDataUser();
    if (!user)
        return false;
    const KXChartDataProviderUse use(*user);
    const bool wanted = use.isCurrent() && use.get()->obtainDataShouldShowToolbox(user, nullptr);
    if (!use.isAlive())
        return false;
    if (wanted)
        m_toolbox->setDataUser(user);
    return wanted;
}

bool KXChart::customMouseLeave(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (m_items)
        m_items->leave(event);
    if (self.isAlive() && obtainLegendDataUser())
        m_toolbox->pointerLeft();
    return self.isAlive() && UXObject::customMouseLeave(event, stop);
}

bool KXChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool isTab = event.getKeyCode() == static_cast<int>(UXKeyCode::Tab) &&
                       !event.containsEventKey(UXEventKey::Ctrl) && !event.containsEventKey(UXEventKey::Alt);
    if (m_items && m_items->walk(event))
        return true;
    if (!self.isAlive())
        return false;
    if (isTab && _walkParts(!event.containsEventKey(UXEventKey::Shift)))
        return true;
    return self.isAlive() && UXObject::customKeyDown(event, stop);
}

/** From the chart as a whole to the legend and on to the strip of buttons, or back.
 *  @return false at an end: who holds the charts goes on from there */
bool KXChart::_walkParts(bool forwards)
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram)
        return false;
    const UXObjectWatcher self(this), view(diagram);
    const UXObject* focused = diagram->getFocusedObject();
    const auto holdsFocus = [focused](UXObject* part) {
        return focused && (focused == part || focused->hasParent(part));
    };
    const bool isOnToolbox = holdsFocus(m_toolbox), isOnLegend = holdsFocus(m_legend);
    bool moved = false;
    if (forwards && !isOnToolbox)
        moved = (!isOnLegend && m_legend->takeKeys()) ||
                (self.isAlive() && _wantsToolbox() && m_toolbox->takeKeys());
    else if (isOnToolbox && !forwards)
        moved = m_legend->takeKeys();
    if (!self.isAlive() || !view.isAlive())
        return true;
    if (!moved && (isOnToolbox || isOnLegend)) {
        diagram->setFocusedObject(this);
        moved = !forwards;
    }
    if (isOnToolbox)
        m_toolbox->leaveKeys();
    return moved;
}
