#include "ux/ux_global_event_diagram.h"

#include "ux/ux_notification_scope.h"

#include <algorithm>

UXGlobalEventDiagram::UXGlobalEventDiagram(UXContext* context) : UXDiagram(context) {}

UXGlobalEventDiagram::~UXGlobalEventDiagram()
{
    while (!m_servedDiagrams.empty())
        m_servedDiagrams.back()->unregisterGlobalEventDiagram(this);
}

void UXGlobalEventDiagram::endActions() {}

UXPoint UXGlobalEventDiagram::diagramSpaceToGlobalDiagramSpace(UXPoint point, UXControl*) const
{
    return point;
}

UXPoint UXGlobalEventDiagram::globalDiagramSpaceToDiagramSpace(const UXEvent& event) const
{
    return event.getMousePoint();
}

bool UXGlobalEventDiagram::isInDiagramSpace() const { return true; }

void UXGlobalEventDiagram::flushDirtyRect()
{
    if (isUpdating() || getDirtyRegion().isEmpty())
        return;
    const UXNotificationScope scope;
    const UXDirtyRegion region = getDirtyRegion();
    clearDirtyRect();
    for (const UXObjectWatcher& served : _watchServedDiagrams()) {
        for (const UXRect& rect : region.getRects()) {
            if (served.isAlive())
                served.getObject()->addDirtyRect(rect);
        }
    }
}

void UXGlobalEventDiagram::repaintDirtyRect()
{
    if (isUpdating()) {
        UXObject::repaintDirtyRect();
        return;
    }
    for (const UXObjectWatcher& served : _watchServedDiagrams()) {
        if (served.isAlive())
            served.getObject()->repaintDirtyRect();
    }
}

std::vector<UXObjectWatcher> UXGlobalEventDiagram::_watchServedDiagrams() const
{
    return {m_servedDiagrams.begin(), m_servedDiagrams.end()};
}

std::string UXGlobalEventDiagram::customSerializeTypeID() { return "UXGlobalEventDiagram"; }

void UXGlobalEventDiagram::setActiveDiagram(UXDiagram* diagram)
{
    if (!diagram || std::ranges::count(m_servedDiagrams, diagram) > 0)
        m_activeDiagram = diagram;
}

void UXGlobalEventDiagram::_forgetServedDiagram(UXDiagram* diagram)
{
    std::erase(m_servedDiagrams, diagram);
    if (m_activeDiagram == diagram)
        m_activeDiagram = nullptr;
    servedDiagramLeft();
}

void UXGlobalEventDiagram::servedDiagramLeft() {}
