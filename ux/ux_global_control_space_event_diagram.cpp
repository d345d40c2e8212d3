#include "ux/ux_global_control_space_event_diagram.h"

#include "ux/ux_control.h"

UXGlobalControlSpaceEventDiagram::UXGlobalControlSpaceEventDiagram(UXContext* context)
    : UXGlobalEventDiagram(context)
{
}

UXGlobalControlSpaceEventDiagram::~UXGlobalControlSpaceEventDiagram() = default;

std::string UXGlobalControlSpaceEventDiagram::customSerializeTypeID()
{
    return "UXGlobalControlSpaceEventDiagram";
}

UXPoint UXGlobalControlSpaceEventDiagram::diagramSpaceToGlobalDiagramSpace(UXPoint point,
                                                                           UXControl* control) const
{
    if (!control)
        return point;
    const UXControlPoint inControl = control->diagramSpaceToControlSpace(point);
    return {inControl.x, inControl.y};
}

UXPoint UXGlobalControlSpaceEventDiagram::globalDiagramSpaceToDiagramSpace(const UXEvent& event) const
{
    const UXPoint& point = event.getMousePoint();
    return event.getControl()
               ? event.getControl()->controlSpaceToDiagramSpace(UXControlPoint(point.x, point.y))
               : point;
}

bool UXGlobalControlSpaceEventDiagram::isInDiagramSpace() const { return false; }
