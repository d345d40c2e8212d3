#include "pie_board.h"

#include "kx_chart_property.h"

#include <string>
#include <vector>

PieBoard::PieBoard()
{
    m_chart.getChartProperty()->updateTitleValue("Share");
    m_chart.getChartProperty()->updateLegendPosition(UXPosition::Left);
    std::vector<std::string> names;
    for (int i = 1; i <= 8; ++i)
        names.push_back("Slice " + std::to_string(i));
    m_provider.addDimension("Slice", names);
    m_provider.addMeasure("Share", {34, 21, 13, 11, 8, 6, 4, 3});
    reload();
}

void PieBoard::update()
{
    m_isTurned = !m_isTurned;
    m_provider.replaceMeasure(0, m_isTurned ? KXDataColumn{3, 4, 6, 8, 11, 13, 21, 34}
                                            : KXDataColumn{34, 21, 13, 11, 8, 6, 4, 3});
    reload();
}
