#pragma once

#include "kx_export.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_object_watcher.h"

#include <functional>

/**
 * Shows something over a diagram, inside the diagram's rectangle, that has all events to itself while it is
 * open: a menu, a list that drops down. A kind says what is shown and how it answers the pointer and the
 * keys.
 */
class KX_EXPORT KXPopupEventDiagram : public UXGlobalEventDiagram {
public:
    ~KXPopupEventDiagram() override;

    virtual bool isOpen() const = 0;
    void close();
    /** @param handler called when everything has closed; may destroy this diagram */
    void setClosedHandler(std::function<void()> handler);

    // From UXGlobalEventDiagram and UXObject
    /** Closes, as when the host's window loses the focus. */
    void endActions() override;
    bool controlSize(const UXEvent& event) override;

protected:
    explicit KXPopupEventDiagram(UXContext* context);

    /** Closes what is open and makes ready for what is to be added, registered with diagram from then on.
     *  @param diagram the one that it lies over
     *  @param owner what opens closes with the next event once this is gone, hidden or no longer on diagram;
     * null for nobody
     *  @return false where this, the diagram or the owner is gone */
    bool _openOver(UXDiagram* diagram, UXObject* owner);
    /** Destroys what is open. */
    virtual void _removeContent() = 0;
    /** The press that comes keeps its release from what lies below. */
    void _keepRelease() { m_keepsRelease = true; }
    bool _keepsRelease() const { return m_keepsRelease; }
    /** @return whether the release is one that was kept, which it is once */
    bool _takeRelease();

    void setActiveDiagram(UXDiagram* diagram) override;
    void servedDiagramLeft() override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    bool customKeyUp(const UXEvent& event, bool& stop) override;

private:
    std::function<void()> m_closedHandler;
    UXObjectWatcher m_owner{nullptr};
    bool m_hasOwner = false;
    bool m_keepsRelease = false;
};
