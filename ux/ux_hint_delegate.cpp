#include "ux/ux_hint_delegate.h"

#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_notification_scope.h"

#include <utility>

UXHintDelegate::UXHintDelegate(UXObject* owner) : m_owner(owner) {}

UXHintDelegate::~UXHintDelegate() { _hideOnScreen(); }

void UXHintDelegate::setShowHint(bool showHint)
{
    m_showHint = showHint;
    if (!showHint)
        hideHint();
}

void UXHintDelegate::showHint(UXPoint point, UXEvent* event, UXHintInfo* info)
{
    const UXObjectWatcher owner = m_owner;
    bool explainsItself = false;
    if (m_showHint && event && info && info->enabled && owner.isAlive()) {
        explainsItself = owner.getObject()->triggerEventResponder(UXEventResponderType::Hint, *event);
        if (!owner.isAlive())
            return;
    }
    if (m_showHint && !explainsItself)
        setHintVisible(point, event, info);
    else
        hideHint();
}

void UXHintDelegate::showHintOn(UXControl* control, UXPoint point, UXHintInfo* info)
{
    m_askedControl = control;
    showHint(point, nullptr, info);
}

void UXHintDelegate::setHintVisible(UXPoint point, UXEvent*, UXHintInfo* info)
{
    if (!info || !info->enabled) {
        setHintHidden();
        return;
    }
    m_hintPoint = point;
    m_hintInfo = *info;
    m_hintVisible = true;
    _showOnScreen();
}

void UXHintDelegate::hideHint() { setHintHidden(); }

void UXHintDelegate::setHintHidden()
{
    m_hintVisible = false;
    m_askedControl = nullptr;
    _hideOnScreen();
}

UXRect UXHintDelegate::obtainHintArea(UXPoint) { return {}; }

void UXHintDelegate::_showOnScreen()
{
    const UXNotificationScope scope;
    const UXObjectWatcher owner = m_owner;
    UXControl* control = std::exchange(m_askedControl, nullptr);
    const UXDiagram* diagram = uxObtainDiagram(owner.getObject());
    const UXObjectWatcher next(diagram ? diagram->getGlobalControlSpaceEventDiagram() : nullptr);
    if (m_screen.isAlive() && (m_screen.getObject() != next.getObject() || m_shownControl != control)) {
        _hideOnScreen();
        if (!owner.isAlive())
            return;
    }
    m_screen = next;
    m_shownControl = control;
    if (auto* screen = static_cast<UXGlobalControlSpaceEventDiagram*>(next.getObject()))
        screen->showHint(&m_hintInfo, owner.getObject(), m_hintPoint, control, obtainHintArea(m_hintPoint));
}

void UXHintDelegate::_hideOnScreen()
{
    // The host may destroy this delegate when it hears of the change.
    auto* screen = static_cast<UXGlobalControlSpaceEventDiagram*>(m_screen.getObject());
    m_screen = UXObjectWatcher(nullptr);
    if (screen)
        screen->hideHint(&m_hintInfo, nullptr);
}
