#pragma once

#include "kx_export.h"
#include "kx_popup_event_diagram.h"
#include "ux/ux_object_watcher.h"

#include <string>

class KXControlChartComboBoxScrollView;

/**
 * Shows the list of a combo box over a diagram, inside the diagram's rectangle. While it is open it has all
 * events to itself; a press elsewhere closes it and does nothing else, and so do Escape and Tab.
 */
class KX_EXPORT KXControlChartEventDiagram : public KXPopupEventDiagram {
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
    /** @return null while nothing is open */
    KXControlChartComboBoxScrollView* getView() const;

    // From KXPopupEventDiagram and UXJsonObject
    bool isOpen() const override { return getView() != nullptr; }
    std::string customSerializeTypeID() override;

protected:
    void _removeContent() override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseMove(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    UXObjectWatcher m_view{nullptr};
};
