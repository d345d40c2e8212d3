#pragma once

#include "kx_chart_data_path.h"
#include "kx_export.h"
#include "kx_highlight_result.h"
#include "ux/ux_global_event_diagram.h"
#include "ux/ux_object_watcher.h"

#include <memory>
#include <vector>

class KXChart;
class KXChartDataUser;

/**
 * Links the charts on all diagrams that it is registered on: what an item of one chart asks for is shown in
 * every other one, at the item that the other chart's provider answers with.
 *
 * Several items can ask at once, such as a selected one and the one under the pointer; the last is shown, and
 * when it no longer asks, the one before it again. Charts, items and diagrams may come and go meanwhile: a
 * highlight ends with the item or the chart that asked for it, and a chart that is new or has new data joins
 * in when it is laid out. Escape ends every highlight.
 */
class KX_EXPORT KXChartLinkedActionDiagram : public UXGlobalEventDiagram {
public:
    explicit KXChartLinkedActionDiagram(UXContext* context = nullptr);
    ~KXChartLinkedActionDiagram() override;

    /** @return the one that links the charts of the diagram on which object stands; null for none */
    static KXChartLinkedActionDiagram* find(UXObject* object);

    // What charts tell
    /** @param source the item that asks, in chart; null asks for nothing
     *  @param user chart's */
    void requestHighlight(KXChart* chart, KXChartDataUser* user, const KXChartDataPath& path,
                          UXObject* source, const UXEvent& event);
    /** The item no longer asks. A selected one goes on asking while it is selected. */
    void clearHighlight(UXObject* source);
    /** A chart that shows no highlight yet shows the present one, in a layout when that has ended. */
    void joinHighlight(KXChart* chart);
    /** What a chart shows of the highlight ends; its next layout lets it join anew. */
    void leaveHighlight(KXChart* chart);
    /** Ends what chart asks for and what it shows. */
    void forgetChart(KXChart* chart);

    // Queries
    /** @return the item whose matches are highlighted, null for none */
    UXObject* getHighlightSource() const;
    /** @return what became of the present highlight in chart */
    KXHighlightResult obtainHighlightResult(const KXChart* chart) const;

    // From UXGlobalEventDiagram
    /** Ends every highlight. */
    void endActions() override;
    std::string customSerializeTypeID() override;
    bool mouseDown(const UXEvent& event) override;
    bool mouseMove(const UXEvent& event) override;
    bool mouseUp(const UXEvent& event) override;
    bool mouseLeave(const UXEvent& event) override;
    bool keyDown(const UXEvent& event) override;

protected:
    void servedDiagramLeft() override;

private:
    struct Request {
        UXObjectWatcher chart, source;
        KXChartDataUser* user; // the chart's
        KXChartDataPath path;
        bool followsPointer; // it came with the pointer and goes when the pointer leaves the chart
    };
    struct Receiver {
        UXObjectWatcher chart;
        KXHighlightResult result;
    };

    bool _isServed(UXObject* object) const;
    bool _lacksHighlight(KXChart* chart);
    bool _isOver(UXObject* chart, const UXEvent& event) const;
    std::vector<Receiver>::iterator _findReceiver(const UXObject* chart);
    template <class Remove>
    void _removeRequests(const Remove& remove, const UXObject* leavingChart = nullptr);
    bool _removeStale(const UXEvent* pointer);
    void _showLastRequest(const UXObject* leavingChart);
    bool _hideAll();
    void _hideIn(const Receiver& receiver);
    void _showIn(KXChart* chart, const Request& request);
    std::unique_ptr<KXChartDataPath> _obtainTargetPath(KXChart* chart, const Request& request);
    std::vector<UXObjectWatcher> _collectCharts() const;
    static UXControl* _obtainControl(UXObject* chart);

    std::vector<std::shared_ptr<const Request>> m_requests; // the last one is shown
    std::shared_ptr<const Request> m_shown;
    std::vector<Receiver> m_receivers;
    unsigned m_generation = 0; // tells whoever called out that another highlight came meanwhile
};
