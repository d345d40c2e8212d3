#pragma once

#include "kx_chart_linked_action_diagram.h"
#include "ux/ux_color.h"
#include "ux/ux_context.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_dirty_region.h"
#include "ux/ux_global_control_space_event_diagram.h"
#include "ux/ux_global_smooth_scrolling_event_diagram.h"
#include "ux/ux_size.h"
#include "web_chart.h"
#include "web_drawing.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class UXEvent;

/** Charts on a canvas of a page, with their hints, menus and linked highlights. It draws into commands, only
 * what has changed, and asks the page for a frame when something has. */
class WebView final : public UXControl {
public:
    WebView();
    ~WebView() override;

    // Charts
    /** @return the chart, which stays this object's; null for a document that is none */
    WebChart* addChart(const std::string& document);
    /** @param chart one of this object's */
    void removeChart(WebChart* chart);
    /** Hands the keys to a chart. @param chart null for none */
    void setFocusedChart(WebChart* chart);
    /** Does what a left click on the focused chart does. */
    void activateFocusedChart();

    // The canvas
    /** @param pixels at least 1 x 1
     *  @param scale pixels for a logical unit */
    void resize(const UXSize& pixels, double scale);
    void setGround(const UXColor& ground);
    void setReduceMotion(bool reduceMotion) { m_reduceMotion = reduceMotion; }
    /** Lays everything out anew, as when fonts have come. */
    void measureAnew();
    /** Runs what is due, lays out what has to be, and draws the dirty areas.
     *  @return empty where the canvas stays as it is */
    const std::vector<std::uint32_t>& drawFrame(std::int64_t nowMilliseconds);

    /** @return what drawFrame has answered last */
    const std::vector<std::uint32_t>& getFrame() const { return m_drawing.getWords(); }

    /** Sends a message to the page that shows a chart; nothing where the chart has gone. */
    static void tell(std::uint32_t chart, const std::string& message);

    // From UXControl
    bool hasDefaultBackground() const override;
    bool shouldReduceMotion() const override;
    void customEvent() override;
    void notifyDirtyRect(UXDiagram* diagram) override;
    void notifyFullScreenDirtyRect(UXDiagram* diagram) override;
    void notifyCursorChange(int cursor) override;
    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point) override;

private:
    std::uint32_t _obtainNumber() const;
    std::vector<UXGlobalControlSpaceEventDiagram*> _obtainOverlays() const;
    UXDirtyRegion _takeDirtyPixels();
    void _drawArea(const UXRect& pixels);

    UXContext m_context;
    UXDiagram m_diagram{&m_context};
    UXGlobalControlSpaceEventDiagram m_hints;
    UXGlobalSmoothScrollingEventDiagram m_scroller;
    KXChartLinkedActionDiagram m_linked;
    std::vector<std::unique_ptr<WebChart>> m_charts;
    WebDrawing m_drawing;
    UXColor m_ground{255, 255, 255};
    bool m_allDirty = true;
    bool m_reduceMotion = false;
};
