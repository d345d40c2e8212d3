#pragma once

#include "ux/ux_json_object_watcher.h"
#include "ux/ux_object.h"

class UXContext;
class UXControl;
class UXGlobalControlSpaceEventDiagram;
class UXGlobalEventDiagram;

/**
 * The root of a tree that a host's control shows. A diagram destroys none of its children: what is on it when
 * it goes is handed back to whoever knows it.
 */
class UX_EXPORT UXDiagram : public UXObject {
public:
    /** @param context stays its owner's and may be null; it is told what has to be painted */
    explicit UXDiagram(UXContext* context = nullptr);
    ~UXDiagram() override;

    /** @return null without a context, and once the context is gone */
    UXContext* getContext() const { return m_contextWatcher.isAlive() ? m_context : nullptr; }

    // From UXObject
    /** Writes the children under "m_objects", so that a document holds what stands on the diagram. */
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    /** Reads into the children that the diagram has, in order. */
    bool customDeserialize() override;
    /** @return null: a diagram stands in nothing */
    UXObject* getParent() const override;
    /** Client makes the diagram as large as its control. */
    void setAlign(UXAlign align) override;
    void setRect(UXRect rect) override;
    void flushDirtyRect() override;
    void repaintDirtyRect() override;
    /** @return whether the diagram or anything on it has a responder of the type */
    bool getShouldResponse(UXEventResponderType type) const override;

private:
    virtual void afterEvent(const UXEvent& event, bool handled);

public:
    /** Called after an event has been dispatched, before posted actions run. */
    virtual void customAfterEvent(const UXEvent& event);
    /** Called after a control has moved the origin of this diagram. */
    virtual void originDidChange();
    virtual void zoomRatioWillChange(double zoomRatio);
    virtual void zoomRatioDidChange(double zoomRatio);

    // Diagrams that see this one's events before it does
    /** @param diagram stays its owner's; it leaves by itself when it is destroyed */
    void registerGlobalEventDiagram(UXGlobalEventDiagram* diagram);
    void unregisterGlobalEventDiagram(UXGlobalEventDiagram* diagram);
    /** @return in the order registered */
    const std::vector<UXGlobalEventDiagram*>& getGlobalEventDiagrams() const { return m_globalEventDiagrams; }
    /** @return the first registered one that works in the control's space; null without any */
    UXGlobalControlSpaceEventDiagram* getGlobalControlSpaceEventDiagram() const;

private:
    friend class UXContext;

    void _setContext(UXContext* context);

    UXContext* m_context = nullptr;
    UXJsonObjectWatcher m_contextWatcher;
    std::vector<UXGlobalEventDiagram*> m_globalEventDiagrams;
};
