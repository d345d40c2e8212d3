#pragma once

#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"

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

    // Its own space, which is that of the diagrams that it serves unless a subclass says otherwise
    /** @param point in the space of the active diagram
     *  @param control the one that the point is seen in, may be null */
    virtual UXPoint diagramSpaceToGlobalDiagramSpace(UXPoint point, UXControl* control) const;
    /** @param event as this diagram received it
     *  @return its point in the space of the active diagram */
    virtual UXPoint globalDiagramSpaceToDiagramSpace(const UXEvent& event) const;
    /** @return whether it is painted together with the diagrams that it serves, over them */
    virtual bool isInDiagramSpace() const;

    // From UXObject
    std::string customSerializeTypeID() override;
    /** What is dirty here is dirty on the diagrams that it lies over. */
    void flushDirtyRect() override;
    void repaintDirtyRect() override;

protected:
    /** @return the diagrams that this one is registered on */
    const std::vector<UXDiagram*>& getServedDiagrams() const { return m_servedDiagrams; }
    /** A diagram that this one is not registered on is refused; null is none. */
    virtual void setActiveDiagram(UXDiagram* diagram);
    /** Called when one of the served diagrams is none any more. */
    virtual void servedDiagramLeft();

private:
    friend class UXDiagram;

    void _forgetServedDiagram(UXDiagram* diagram);
    std::vector<UXObjectWatcher> _watchServedDiagrams() const;

    std::vector<UXDiagram*> m_servedDiagrams;
    UXDiagram* m_activeDiagram = nullptr;
};
