#include "ux/ux_global_event_diagram.h"

#include <algorithm>

UXGlobalEventDiagram::UXGlobalEventDiagram(UXContext* context) : UXDiagram(context) {}

UXGlobalEventDiagram::~UXGlobalEventDiagram()
{
    while (!m_servedDiagrams.empty())
        m_servedDiagrams.back()->unregisterGlobalEventDiagram(this);
}

void UXGlobalEventDiagram::endActions() {}

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
}
