#pragma once

#include "chart_board.h"
#include "kx_gauge_chart.h"
#include "kx_gauge_chart_data_provider.h"

/** One number as a host would provide it. */
class GaugeScore : public KXGaugeChartDataProvider {
public:
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath&) override { return score; }

    double score = 72.5;
};

/** A gauge of a score: eight parts, nine boundaries, a needle and the value. It is our picture of what the
 * comparison of chart libraries calls "gauge", where others draw 270 degrees with ticks. */
class GaugeBoard : public ChartBoard<KXGaugeChart, GaugeScore> {
public:
    GaugeBoard();

    /** Replaces the score by another one, and back again with the next call. */
    void update();
};
