#pragma once

#include "kx_gauge_chart.h"
#include "kx_gauge_chart_data_provider.h"
#include "ux/ux_diagram.h"

class UXPaintConfig;

/** A gauge of a score: eight parts, nine boundaries, a needle and the value. It is our picture of what the
 * comparison of chart libraries calls "gauge", where others draw 270 degrees with ticks. */
class GaugeBoard {
public:
    GaugeBoard();

    void layout(int width, int height);
    void paint(UXPaintConfig& config);
    /** Gives the chart its score anew, as data that was replaced. */
    void reload();

    UXDiagram& getDiagram() { return m_diagram; }

private:
    /** One number as a host would provide it. */
    class Score : public KXGaugeChartDataProvider {
    public:
        void beginPrepareData(KXChartDataUser*) override {}
        void endPrepareData(KXChartDataUser*) override {}
        bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
        std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
        double obtainValueData(KXChartDataUser*, const KXIndexPath&) override { return 72.5; }
    };

    Score m_score;
    UXDiagram m_diagram; // does not own the chart, which leaves it first
    KXGaugeChart m_chart;
};
