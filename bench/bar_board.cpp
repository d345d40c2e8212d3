#include "bar_board.h"

#include "kx_axis_chart_property.h"
#include "kx_chart_property.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

std::uint64_t BarBoard::Table::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    return dimension == categoryDimension ? numbers.size() / seriesCount : 0;
}

std::string BarBoard::Table::obtainDimensionData(KXChartDataUser*, const KXIndexPath& path)
{
    return "c" + std::to_string(path[1]);
}

std::string BarBoard::Table::obtainValueLabel(KXChartDataUser*, std::uint64_t value)
{
    return "Series " + std::to_string(value + 1);
}

double BarBoard::Table::obtainValueData(KXChartDataUser*, const KXIndexPath& path)
{
    return numbers[path[0] * (numbers.size() / seriesCount) + path[1]];
}

void BarBoard::Table::obtainSeriesValues(KXChartDataUser*, std::uint64_t series, std::uint64_t firstCategory,
                                         std::span<double> values)
{
    const std::size_t begin = series * (numbers.size() / seriesCount) + firstCategory;
    std::copy_n(numbers.begin() + static_cast<std::ptrdiff_t>(begin), values.size(), values.begin());
}

BarBoard::BarBoard(const std::vector<double>& values, std::size_t seriesCount)
{
    m_diagram.setBackgroundColor(UXColor(255, 255, 255));
    m_table.numbers = values;
    m_table.seriesCount = seriesCount;
    m_chart.getChartProperty()->updateTitleValue("Bars");
    m_chart.getAxisChartProperty()->updateEnableScroll(false);
    m_chart.setDataProvider(&m_table);
    m_chart.setAlign(UXAlign::None);
    m_diagram.addChild(&m_chart);
    reload();
}

void BarBoard::reload()
{
    m_chart.prepareData();
    m_chart.reloadData();
    m_diagram.layout();
}

void BarBoard::layout(int width, int height)
{
    m_diagram.setRect(uxMakeRect(0, 0, width, height));
    m_chart.setRect(uxMakeRect(0, 0, width, height));
    m_diagram.layout();
}

void BarBoard::paint(UXPaintConfig& config)
{
    m_diagram.paintBackground(&config);
    m_diagram.paint(&config, m_diagram.getBoundingRect());
}
