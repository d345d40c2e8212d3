#pragma once

#include "ux/ux_json_object_watcher.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_transform.h"

class UXContext;
class UXControl;
class UXEventDispatcher;
class UXGlobalControlSpaceEventDiagram;
class UXGlobalEventDiagram;
class UXUseCaseDiagram;

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
    /** Lays out what stands on the diagram, then the global diagrams that see its events. */
    void layout() override;
    /** What becomes dirty here is so on the use-case diagrams that show this one, too. */
    void addDirtyRect(UXRect rect) override;
    void flushDirtyRect() override;
    void repaintDirtyRect() override;
    /** Paints what stands on the diagram, and over it the global diagrams that are in its space; the one that
     * sees the events first is in front. */
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;
    /** @return whether the diagram or anything on it has a responder of the type */
    bool getShouldResponse(UXEventResponderType type) const override;
    /** Asks the responders of all that lies under the event's point, the deepest first. */
    bool triggerEventResponder(UXEventResponderType type, const UXEvent& event) override;
    bool controlSize(const UXEvent& event) override;

    // The host's input. The registered global diagrams see it first and may keep it; then it goes down the
    // tree. Hovering, dragging and clicks are made from the moves, presses and releases.
    bool mouseDown(const UXEvent& event) override;
    bool mouseMove(const UXEvent& event) override;
    bool mouseUp(const UXEvent& event) override;
    bool mouseEnter(const UXEvent& event) override;
    bool mouseLeave(const UXEvent& event) override;
    bool mouseWheel(const UXEvent& event) override;
    bool mouseDoubleClick(const UXEvent& event) override;
    bool mouseDragging(const UXEvent& event) override;
    bool mouseDragEnter(const UXEvent& event) override;
    bool mouseDragOver(const UXEvent& event) override;
    bool mouseDragLeave(const UXEvent& event) override;
    bool mouseDrop(const UXEvent& event) override;
    bool keyDown(const UXEvent& event) override;
    bool keyUp(const UXEvent& event) override;
    bool externalDragging(const UXEvent& event) override;
    bool externalDrop(const UXEvent& event) override;

    /** @return what receives keys: what was pressed or set last, null for none */
    UXObject* getFocusedObject() const;
    void setFocusedObject(UXObject* object);
    /** @return the visible objects under point, this diagram's space; the deepest first, the diagram last */
    std::vector<UXObjectWatcher> obtainObjectsUnder(UXPoint point) const;
    /** @return the cursor of what is pressed or hovered, AsParent where that has none */
    UXCursor obtainCursor() const;
    /** Ends a press without a drop and without a click, for whoever makes something else of it. */
    void cancelPress();
    /** Fills the diagram with its background colour; a control without a background of its own has it done
     * before it paints the diagram. */
    void paintBackground(UXPaintConfig* config);

private:
    virtual void afterEvent(const UXEvent& event, bool handled);

public:
    /** Called after an event has been dispatched, before posted actions run. */
    virtual void customAfterEvent(const UXEvent& event);
    /** Called after a control has moved the origin of this diagram. */
    virtual void originDidChange();
    virtual void zoomRatioWillChange(double zoomRatio);
    virtual void zoomRatioDidChange(double zoomRatio);

    /** @return the map from the diagram's space to the pixels of the device that shows it; the identity until
     * somebody knows better */
    const UXTransform& getDeviceTransform() const { return m_deviceTransform; }
    /**
     * Says on which pixels the diagram will be painted: what stands on whole pixels is laid out for them. A
     * control tells the diagram that it shows; who paints without one says so before the layout. Where the
     * pixels lie as before, nothing happens.
     */
    void setDeviceTransform(const UXTransform& toDevice);

    // Diagrams that see this one's events before it does
    /** @param diagram stays its owner's; it leaves by itself when it is destroyed. One whose events this one
     * sees itself is refused. */
    void registerGlobalEventDiagram(UXGlobalEventDiagram* diagram);
    void unregisterGlobalEventDiagram(UXGlobalEventDiagram* diagram);
    /** Lets a registered one see the events before the others, and lie over them. */
    void bringGlobalEventDiagramToFront(UXGlobalEventDiagram* diagram);
    /** @return from front to back: in the order registered, but for those brought to the front */
    const std::vector<UXGlobalEventDiagram*>& getGlobalEventDiagrams() const { return m_globalEventDiagrams; }
    /** @return the first registered one that works in the control's space; null without any */
    UXGlobalControlSpaceEventDiagram* getGlobalControlSpaceEventDiagram() const;

private:
    friend class UXContext;
    friend class UXUseCaseDiagram;

    using Entry = bool (UXObject::*)(const UXEvent&);
    using Act = bool (UXEventDispatcher::*)(const UXEvent&);

    void _setContext(UXContext* context);
    /** The pointer goes elsewhere without a release and without a leave: nothing is pressed or hovered any
     * more, here or on what lies over the diagram. */
    void _endPointer();
    /** Sends event to the global diagrams by entry, then through the tree by act. */
    bool _dispatch(UXEventType type, const UXEvent& event, Entry entry, Act act);
    bool _offerToGlobalEventDiagrams(const UXEvent& event, Entry entry);
    /** Calls act with each global diagram that is still registered when its turn comes, from front to back.
     */
    void _forEachGlobalEventDiagram(const std::function<void(UXGlobalEventDiagram&)>& act);
    /** The same from back to front. */
    void _forEachGlobalEventDiagramFromBack(const std::function<void(UXGlobalEventDiagram&)>& act);
    void _forEach(const std::vector<UXObjectWatcher>& candidates,
                  const std::function<void(UXGlobalEventDiagram&)>& act);

    UXTransform m_deviceTransform;
    UXContext* m_context = nullptr;
    UXJsonObjectWatcher m_contextWatcher;
    std::vector<UXGlobalEventDiagram*> m_globalEventDiagrams;
    std::vector<UXUseCaseDiagram*> m_useCaseDiagrams; // those that show this one
    bool m_isRepainting = false;
    bool m_repaintAsked = false; // meanwhile
    // Shared with the dispatches that run, in which the diagram may be destroyed.
    std::shared_ptr<UXEventDispatcher> m_dispatcher;
};
