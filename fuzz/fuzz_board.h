#pragma once

#include "fuzz_control.h"
#include "fuzz_input.h"
#include "kx_chart_linked_action_diagram.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_global_smooth_scrolling_event_diagram.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_preview_diagram.h"
#include "ux/ux_scroll_view.h"

#include <functional>

class FuzzField;
class UXContext;
class UXDiagram;

/** What hosts put on a view beside the charts: hints, links, smooth scrolling, fields in a scroll view, and a
 * preview of all of it in a control of its own. */
class FuzzBoard {
public:
    /** @param act called by the fields, may do anything but destroy the board */
    FuzzBoard(FuzzInput& input, UXContext& context, UXDiagram& diagram, std::function<void()> act);

    UXControl& getPreviewControl() { return m_previewControl; }
    UXDiagram& getPreview() { return m_preview; }
    /** Does the next thing to one of the parts. */
    void change();

private:
    void _changeGlobals(int choice);
    void _changeScrollView(int choice);
    void _changeField(int choice);
    void _changePreview();
    void _addField();

    FuzzInput& m_input;
    UXContext& m_context;
    UXDiagram& m_diagram;
    std::function<void()> m_act;
    FuzzControl m_previewControl;
    UXPreviewDiagram m_preview;
    KXChartLinkedActionDiagram m_links;
    UXGlobalSmoothScrollingEventDiagram m_scrolling;
    UXGlobalControlSpaceEventDiagram m_hints;
    UXScrollView m_scrollView;
    UXObjectWatcher m_field{nullptr};
};
