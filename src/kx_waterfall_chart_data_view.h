#pragma once

#include "kx_axis_chart_stacks.h"
#include "kx_bar_chart_data_view.h"
#include "kx_export.h"
#include "kx_waterfall_steps.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/**
 * Draws each step of a waterfall as a bar from one running total to the next, totals from zero on, and thin
 * lines that lead from bar to bar. Where the value axis leaves zero out, totals have a torn foot.
 *
 * It has three series: increases, decreases and totals.
 */
class KX_EXPORT KXWaterfallChartDataView : public KXBarChartDataView {
public:
    enum Series : int { Increase, Decrease, Total, SeriesCount };

    KXWaterfallChartDataView();
    ~KXWaterfallChartDataView() override;

    /** @param startsAtZero whether the value axis holds zero; else it shows the range of the changes */
    void takeSteps(KXWaterfallSteps steps, bool startsAtZero);
    const KXWaterfallSteps& getSteps() const { return m_steps; }
    /** @return the series that a step belongs to */
    static Series obtainSeries(const KXWaterfallStep& step);
    /** @return the lines between the bars that can be seen, as of the last layout */
    const std::vector<UXDoubleRect>& getConnectors() const { return m_connectors; }
    void setShowsConnectors(bool shows) { m_showsConnectors = shows; }

    // From KXBarChartDataView
    bool placesItself() const override;
    KXAxisChartStacking obtainStacking() const override;
    std::optional<KXAxisChartValueRange> obtainValueRange() const override;
    bool shouldIncludeZero() const override;
    void layout(const KXAxisChartPlotFrame& frame) override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    void fillHintFooter(UXHintInfo& info, std::uint64_t category) override;
    std::string customSerializeTypeID() override;

protected:
    KXAxisChartStacks _makeStacks() const override;
    void _finishBars(std::vector<KXBar>& bars) override;

private:
    /** Where a bar is torn off: its teeth reach from its end to the end of the axis. */
    struct Foot {
        std::size_t bar; // in the layout
        double from, to; // places along
    };

    void _placeConnectors();
    void _paintFoot(UXPainter& painter, const Foot& foot) const;

    KXWaterfallSteps m_steps;
    std::vector<KXAxisChartSpan> m_spans; // one a step
    bool m_startsAtZero = true, m_showsConnectors = true;
    std::vector<UXDoubleRect> m_connectors;
    std::vector<Foot> m_feet;
};
