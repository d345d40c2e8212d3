#pragma once

#include "bar_board.h"
#include "chart_board.h"
#include "kx_scatter_chart.h"

#include <vector>

/** Points by two measures: the picture that the comparison of chart libraries calls "scatter". */
class ScatterBoard : public ChartBoard<KXScatterChart, BarTable> {
public:
    /** @param places all along the X axis, then as many along the Y axis */
    explicit ScatterBoard(const std::vector<double>& places);

    /** Replaces the data by other ones, with another range, and back again with the next call. */
    void update();
    /** @return whether a point lies there */
    bool hit(const UXPoint& point);

private:
    std::vector<double> m_otherNumbers; // those that the provider does not have just now
};
