#pragma once

#include "chart_board.h"
#include "kx_tree_map_chart.h"
#include "kx_tree_map_chart_data_provider.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/** Tiles in twelve groups, each tile in one, as a host would list them. */
class TreeTable : public KXTreeMapChartDataProvider {
public:
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override;
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override;
    std::uint64_t obtainItemCount(KXChartDataUser*) override { return numbers.size(); }
    void obtainItems(KXChartDataUser* user, std::uint64_t first,
                     std::span<KXPanelChartDataItem> items) override;

    std::vector<double> numbers; // one a tile
};

/** A tree map of two levels: the picture that the comparison of chart libraries calls "tree". */
class TreeBoard : public ChartBoard<KXTreeMapChart, TreeTable> {
public:
    explicit TreeBoard(const std::vector<double>& values);

    /** Replaces the sizes by others in another order, and back again with the next call. */
    void update();
    /** @return whether a tile lies there */
    bool hit(const UXPoint& point) { return m_chart.obtainItemAt(point).has_value(); }

private:
    std::vector<double> m_otherNumbers;
};
