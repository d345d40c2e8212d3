#include "ux/ux_global_control_space_event_diagram.h"

UXGlobalControlSpaceEventDiagram::UXGlobalControlSpaceEventDiagram(UXContext* context)
    : UXGlobalEventDiagram(context)
{
}

UXGlobalControlSpaceEventDiagram::~UXGlobalControlSpaceEventDiagram() = default;

std::string UXGlobalControlSpaceEventDiagram::customSerializeTypeID()
{
    return "UXGlobalControlSpaceEventDiagram";
}
