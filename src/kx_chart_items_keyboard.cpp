#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_toolbox.h"
#include "kx_legend.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"

#include <utility>

namespace {

std::optional<KXChartItemStep> obtainStep(UXKeyCode key)
{
    switch (key) {
    case UXKeyCode::Left:
        return KXChartItemStep::Left;
    case UXKeyCode::Right:
        return KXChartItemStep::Right;
    case UXKeyCode::Up:
        return KXChartItemStep::Up;
    case UXKeyCode::Down:
        return KXChartItemStep::Down;
    case UXKeyCode::PageUp:
        return KXChartItemStep::PageUp;
    case UXKeyCode::PageDown:
        return KXChartItemStep::PageDown;
    case UXKeyCode::Home:
        return KXChartItemStep::First;
    case UXKeyCode::End:
        return KXChartItemStep::Last;
    default:
        return std::nullopt;
    }
}

} // namespace

/** @return whether the keys are for the items: the focus is on the chart and not on a part with keys of its
 * own */
bool KXChartItems::_hasKeys() const
{
    const UXDiagram* diagram = uxObtainDiagram(&m_chart);
    UXObject* focused = diagram ? diagram->getFocusedObject() : nullptr;
    const auto isIn = [focused](UXObject* part) { return focused == part || focused->hasParent(part); };
    return focused && isIn(&m_chart) && !isIn(m_chart.getLegend()) && !isIn(m_chart.getToolbox());
}

bool KXChartItems::walk(const UXEvent& event)
{
    if (!m_user.isInteractionEnabled() || !_hasKeys())
        return false;
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if (key == UXKeyCode::Enter || key == UXKeyCode::Space)
        return m_showsFocus && m_focused && _pressFocused(event);
    if (key == UXKeyCode::Escape)
        return _escape(event);
    const std::optional<KXChartItemStep> step = obtainStep(key);
    if (!step)
        return false;
    if (m_focused && !m_delegate.hasItem(*m_focused))
        m_focused.reset();
    std::optional<KXChartItem> next = m_delegate.obtainItemBeside(m_focused,
                                                                  m_focused ? *step : KXChartItemStep::First);
    if (!next)
        next = m_focused;
    if (!next)
        return false;
    const UXObjectWatcher self(&m_chart);
    walkTo(*next);
    if (self.isAlive() && event.containsEventKey(UXEventKey::Shift))
        _choose(*next, event);
    return true;
}

void KXChartItems::walkTo(const KXChartItem& item)
{
    const UXObjectWatcher self(&m_chart);
    m_focused = item;
    m_showsFocus = true;
    m_delegate.showItem(item);
    if (!self.isAlive() || m_focused != item)
        return;
    m_actionItem = item;
    m_delegate.itemExplained(std::nullopt); // the keyboard's ring shows it
    m_chart.invalidate();
    uxTellAccessibleChange(m_chart, UXAccessibleChange::Focus);
    if (self.isAlive())
        _explain(item, m_delegate.obtainItemHintPoint(item));
}

bool KXChartItems::goTo(const KXChartItem& item, bool presses)
{
    const UXNotificationScope scope;
    UXDiagram* diagram = uxObtainDiagram(&m_chart);
    if (!diagram || !m_user.isInteractionEnabled() || !m_delegate.hasItem(item))
        return false;
    const UXObjectWatcher self(&m_chart);
    diagram->setFocusedObject(&m_chart);
    walkTo(item);
    if (!self.isAlive() || !presses || m_focused != item)
        return true;
    const UXEvent event(UXEventType::KeyDown);
    _pressFocused(event);
    event.runPostedActions();
    return true;
}

/** @return whether there was anything to give up */
bool KXChartItems::_escape(const UXEvent& event)
{
    if (!m_selected.empty()) {
        _tellSelection({}, event);
        return true;
    }
    if (!std::exchange(m_showsFocus, false))
        return false;
    m_focused.reset();
    const UXObjectWatcher self(&m_chart);
    m_chart.invalidate();
    if (self.isAlive())
        _explain(std::nullopt, {});
    return true;
}

/** Does what a click on the item does. @return true: the key is the item's */
bool KXChartItems::_pressFocused(const UXEvent& event)
{
    UXEvent click = event;
    click.setEventType(UXEventType::LeftClick);
    click.addEventKey(UXEventKey::LeftButton);
    m_actionItem = m_focused;
    KXChartLabel* label = m_delegate.obtainItemLabel(*m_focused);
    UXObject* clicked = label ? static_cast<UXObject*>(label) : &m_chart;
    click.setMousePoint(m_chart.translatePointToParent(m_delegate.obtainItemHintPoint(*m_focused), nullptr));
    const UXFlagScope clicksByKey(&m_chart, m_clicksByKey);
    clicked->triggerEventHandler(click);
    return true;
}
