#pragma once

#include "chart_board.h"
#include "kx_pie_chart.h"
#include "kx_table_data_provider.h"

/** A pie of eight slices with labels beside it and a legend: the picture that the comparison of chart
 * libraries calls "pie". */
class PieBoard : public ChartBoard<KXPieChart, KXTableDataProvider> {
public:
    PieBoard();

    /** Replaces the sizes by others, and back again with the next call. */
    void update();

private:
    bool m_isTurned = false;
};
