#pragma once

#include "chart_board.h"
#include "kx_axis_chart_data_provider.h"
#include "kx_bar_chart.h"

#include <cstddef>
#include <string>
#include <vector>

/** A table of numbers as a host would provide it. */
class BarTable : public KXAxisChartDataProvider {
public:
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override;
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return seriesCount; }
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t value) override;
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override;
    void obtainSeriesValues(KXChartDataUser* user, std::uint64_t series, std::uint64_t firstCategory,
                            std::span<double> values) override;

    std::vector<double> numbers; // one series after the other, of the same length each
    std::size_t seriesCount = 1;
};

/** A chart of bars: the pictures that the comparison of chart libraries calls "bars" and "bars3", and a
 * waterfall. All categories are shown at once. */
template <class Chart>
class BarBoardOf : public ChartBoard<Chart, BarTable> {
public:
    /** @param values one series after the other, of the same length each */
    BarBoardOf(const std::vector<double>& values, std::size_t seriesCount);

    /** Replaces the data by other ones, with another range, and back again with the next call. */
    void update();
    /** @return whether a bar lies there */
    bool hit(const UXPoint& point);

private:
    std::vector<double> m_otherNumbers; // those that the provider does not have just now
};

using BarBoard = BarBoardOf<KXBarChart>;
