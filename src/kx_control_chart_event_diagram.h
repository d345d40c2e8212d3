#pragma once

#include "kx_export.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_object_watcher.h"

#include <functional>
#include <string>

class KXControlChartComboBoxScrollView;

/**
 * Shows the list of a combo box over a diagram, inside the diagram's rectangle. While it is open it has all
 * events to itself; a press elsewhere closes it and does nothing else, and so do Escape and Tab.
 */
class KX_EXPORT KXControlChartEventDiagram : public UXGlobalEventDiagram {
public:
    explicit KXControlChartEventDiagram(UXContext* context = nullptr);
    ~KXControlChartEventDiagram() override;

    /** Opens view in place of the one before, and keeps the diagram registered from then on.
     *  @param diagram the one that the view lies over
     *  @param view becomes this diagram's
     *  @param anchor the view hangs below it, or stands above where only that has the room; in diagram's
     * space
     *  @param owner closes the view with the next event once it is gone, hidden or no longer on diagram */
    void open(UXDiagram* diagram, KXControlChartComboBoxScrollView* view, const UXRect& anchor,
              UXObject* owner);
    void close();
    /** @return null while nothing is open */
    KXControlChartComboBoxScrollView* getView() const;
    bool isOpen() const { return getView() != nullptr; }
    /** @param handler called when the view has closed; may destroy this */
    void setClosedHandler(std::function<void()> handler);

    // From UXGlobalEventDiagram and UXObject
    void endActions() override;
    std::string customSerializeTypeID() override;
    bool controlSize(const UXEvent& event) override;

protected:
    void setActiveDiagram(UXDiagram* diagram) override;
    void servedDiagramLeft() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customKeyUp(const UXEvent& event, bool& stop) override;

private:
    std::function<void()> m_closedHandler;
    UXObjectWatcher m_view{nullptr};
    UXObjectWatcher m_owner{nullptr};
    bool m_keepsRelease = false; // the press closed the view, and its release is nobody's
};
