#pragma once

#include "bar_board.h"
#include "chart_board.h"

#include <cstddef>
#include <string>
#include <vector>

/** A chart of lines, of areas, or of lines with bars: the pictures that the comparison of chart libraries
 * calls "line", "area" and "combo". All categories are shown at once. */
template <class Chart>
class LineBoard : public ChartBoard<Chart, BarTable> {
public:
    /** @param values one series after the other, of the same length each */
    LineBoard(const std::vector<double>& values, std::size_t seriesCount, const std::string& title);

    /** Replaces the data by other ones, with another range, and back again with the next call. */
    void update();
    /** @return whether a line lies there */
    bool hit(const UXPoint& point);

private:
    std::vector<double> m_otherNumbers; // those that the provider does not have just now
};
