#pragma once

#include "chart_board.h"
#include "kx_heat_map_chart.h"
#include "kx_heat_map_chart_data_provider.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/** Rows and columns, all of whose values are there. */
class HeatTable : public KXHeatMapChartDataProvider {
public:
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override;
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override;
    void obtainValues(KXChartDataUser* user, const KXIndexPath& first, std::span<double> values) override;

    std::uint64_t columnCount = 1;
    std::vector<double> numbers; // row after row
};

/** A heat map with its scale: the picture that the comparison of chart libraries calls "heat". */
class HeatBoard : public ChartBoard<KXHeatMapChart, HeatTable> {
public:
    /** @param values row after row
     *  @param fit whether all of it is in sight; else a cell has at least 18 units, and the rest scrolls */
    HeatBoard(const std::vector<double>& values, std::uint64_t columnCount, bool fit);

    /** Replaces the values by others in another order, and back again with the next call. */
    void update();
    /** Scrolls and paints what that shows. */
    void scroll(std::int64_t offset, UXPaintConfig& config);
    /** @return whether a cell lies there */
    bool hit(const UXPoint& point) { return m_chart.obtainItemAt(point).has_value(); }

private:
    std::vector<double> m_otherNumbers;
};
