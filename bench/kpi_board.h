#pragma once

#include "chart_board.h"
#include "kx_kpi_chart.h"
#include "kx_table_data_provider.h"

#include <cstddef>

/** One figure in four centred texts: the picture that the comparison of chart libraries calls "kpi"; or as
 * many panels as one asks for. */
class KpiBoard : public ChartBoard<KXKpiChart, KXTableDataProvider> {
public:
    /** @param panelCount 0 for the one figure without a dimension */
    explicit KpiBoard(std::size_t panelCount);

    /** Replaces the values by others, and back again with the next call. */
    void update();

private:
    void _replace();

    std::size_t m_panelCount;
    bool m_showsOthers = false;
};
