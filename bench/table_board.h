#pragma once

#include "chart_board.h"
#include "kx_table_chart.h"
#include "kx_table_chart_data_provider.h"

#include <cstdint>
#include <span>
#include <string>

/** Rows without end of twenty numbers each, which are worked out when they come into sight. */
class TableRows : public KXTableChartDataProvider {
public:
    static constexpr std::uint64_t columnCount = 20;

    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
    {
        return KXChartDataType::Float;
    }
    std::uint64_t obtainRowDimensionCount(KXChartDataUser*) override { return 1; }
    std::uint64_t obtainColumnDimensionCount(KXChartDataUser*) override { return 1; }
    std::uint64_t obtainHeaderCount(KXChartDataUser*, bool isRow, const KXIndexPath&) override
    {
        return isRow ? rowCount : columnCount;
    }
    bool obtainHeaders(KXChartDataUser*, bool isRow, const KXIndexPath&, std::uint64_t first,
                       std::span<KXTableHeader> headers) override;
    bool obtainCells(KXChartDataUser*, const KXIndexPath&, std::uint64_t firstRow, const KXIndexPath&,
                     std::uint64_t firstColumn, std::uint64_t, const KXTableCellSpan& cells) override;

    std::uint64_t rowCount = 0;
};

/** A view of many rows of numbers: the picture that the comparison of chart libraries calls "table". */
class TableBoard : public ChartBoard<KXTableChart, TableRows> {
public:
    explicit TableBoard(const std::uint64_t& rowCount);

    /** Scrolls to another place, each time another one. */
    void update();
    bool hit(const UXPoint& point) { return m_chart.obtainItemAt(point).has_value(); }

private:
    std::uint64_t m_turn = 0;
};
