#pragma once

#include "ux/ux_global_event_diagram.h"

/** A global diagram whose space is the control's: what is on it keeps its size whatever the zoom is. */
class UX_EXPORT UXGlobalControlSpaceEventDiagram : public UXGlobalEventDiagram {
public:
    explicit UXGlobalControlSpaceEventDiagram(UXContext* context = nullptr);
    ~UXGlobalControlSpaceEventDiagram() override;

    // From UXGlobalEventDiagram
    /** @return point itself without a control */
    UXPoint diagramSpaceToGlobalDiagramSpace(UXPoint point, UXControl* control) const override;
    UXPoint globalDiagramSpaceToDiagramSpace(const UXEvent& event) const override;
    bool isInDiagramSpace() const override;

    // From UXObject
    std::string customSerializeTypeID() override;
};
