#include "kpi_board.h"

#include "kx_chart_data_format.h"
#include "kx_chart_property.h"

#include <algorithm>
#include <string>
#include <vector>

namespace {

UXTextProperty makeProperty(int size, const UXColor& color)
{
    UXTextProperty property;
    property.font.familyName = "DejaVu Sans";
    property.font.size = size;
    property.textColor = color;
    return property;
}

const UXColor dark(51, 51, 51);

} // namespace

KpiBoard::KpiBoard(std::size_t panelCount) : m_panelCount(panelCount)
{
    m_chart.getChartProperty()->updateShowTitle(false);
    m_chart.setCaptionProperty(makeProperty(panelCount > 0 ? 14 : 24, dark));
    UXTextProperty value = makeProperty(panelCount > 0 ? 36 : 72, dark);
    value.font.bold = true;
    m_chart.setValueProperty(value);
    m_chart.setDifferenceProperty(makeProperty(panelCount > 0 ? 14 : 20, dark));
    m_chart.setLabelProperty(makeProperty(12, dark));
    m_chart.setMainLabelAlign(UXTextAlign::Center);
    m_chart.setCentersVertically(true);
    m_chart.setDifferenceDisplay(KXKpiDifferenceDisplay::Percentage);
    m_chart.setShowProgress(false);
    m_chart.setGoodColor(UXColor(59, 162, 114));
    if (panelCount > 0) {
        std::vector<std::string> names;
        for (std::size_t i = 1; i <= panelCount; ++i)
            names.push_back("Region " + std::to_string(i));
        m_provider.addDimension("Region", names);
    }
    m_provider.addMeasure("Revenue", {});
    m_provider.addMeasure("Last month", {});
    _replace();
}

void KpiBoard::update()
{
    m_showsOthers = !m_showsOthers;
    _replace();
}

void KpiBoard::_replace()
{
    const double actual = m_showsOthers ? 1310754 : 1284930, last = m_showsOthers ? 1285053 : 1233138;
    const std::size_t count = (std::max)(m_panelCount, std::size_t{1});
    m_provider.replaceMeasure(0, std::vector<double>(count, actual));
    m_provider.replaceMeasure(1, std::vector<double>(count, last));
    reload();
}
