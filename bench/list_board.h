#pragma once

#include "chart_board.h"
#include "kx_control_chart.h"
#include "kx_control_chart_data_provider.h"

#include <cstdint>
#include <string>
#include <vector>

/** Airports, made up, with how many flights each has. */
class ListTable : public KXControlChartDataProvider {
public:
    explicit ListTable(std::uint64_t memberCount = 0) : count(memberCount) {}
    void beginPrepareData(KXChartDataUser*) override {}
    void endPrepareData(KXChartDataUser*) override {}
    bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override;
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override;
    std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override;
    bool obtainSelection(KXChartDataUser*, std::vector<std::uint64_t>& members, bool& isExcluding) override;

    std::uint64_t count = 0;
};

/** Rows with a check box and a name each, some of them chosen: the picture that the comparison of chart
 * libraries calls "list". */
class ListBoard : public ChartBoard<KXControlChart, ListTable> {
public:
    explicit ListBoard(std::uint64_t memberCount);

    /** Scrolls to another place, each time another one. */
    void update();
    /** Scrolls by rows, to and fro. */
    void scroll(int step);
    bool hit(const UXPoint& point) { return m_chart.obtainItemAt(point).has_value(); }

private:
    std::uint64_t m_turn = 0;
};
