#pragma once

#include "ux/ux_diagram.h"

/**
 * A diagram that lies over others and sees their events before they do, such as one that carries hints or
 * menus. It works for the diagrams that it is registered on, of which one is active: the one that the present
 * event belongs to.
 */
class UX_EXPORT UXGlobalEventDiagram : public UXDiagram {
public:
    explicit UXGlobalEventDiagram(UXContext* context = nullptr);
    ~UXGlobalEventDiagram() override;

    /** @return null when no event has come yet, and once the diagram is gone or no longer served */
    UXDiagram* getActiveDiagram() const { return m_activeDiagram; }
    /** Gives up whatever it is in the middle of, such as a drag. */
    virtual void endActions();

    // From UXObject
    std::string customSerializeTypeID() override;

protected:
    /** A diagram that this one is not registered on is refused; null is none. */
    virtual void setActiveDiagram(UXDiagram* diagram);

private:
    friend class UXDiagram;

    void _forgetServedDiagram(UXDiagram* diagram);

    std::vector<UXDiagram*> m_servedDiagrams;
    UXDiagram* m_activeDiagram = nullptr;
};
