#include "ux/ux_hint_delegate.h"

#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_global_control_space_event_diagram.h"

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
    if (m_showHint)
        setHintVisible(point, event, info);
    else
        hideHint();
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
    _hideOnScreen();
}

UXRect UXHintDelegate::obtainHintArea(UXPoint) { return {}; }

void UXHintDelegate::_showOnScreen()
{
    const UXDiagram* diagram = uxObtainDiagram(m_owner.getObject());
    UXGlobalControlSpaceEventDiagram* screen = diagram ? diagram->getGlobalControlSpaceEventDiagram()
                                                       : nullptr;
    if (m_screen.getObject() != screen)
        _hideOnScreen();
    m_screen = UXObjectWatcher(screen);
    if (screen)
        screen->showHint(&m_hintInfo, m_owner.getObject(), m_hintPoint, nullptr, obtainHintArea(m_hintPoint));
}

void UXHintDelegate::_hideOnScreen()
{
    if (auto* screen = static_cast<UXGlobalControlSpaceEventDiagram*>(m_screen.getObject()))
        screen->hideHint(&m_hintInfo, nullptr);
    m_screen = UXObjectWatcher(nullptr);
}
