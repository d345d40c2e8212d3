#include "kx_axis_chart.h"

#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_mark.h"

#include <cstddef>
#include <limits>

// How the marks are read by those who do not see them: series by series.

std::uint64_t KXAxisChart::obtainItemRowCount() const { return getShownSeries().size(); }

std::string KXAxisChart::obtainItemRowName(std::uint64_t row)
{
    return getSeriesLabel(getShownSeries()[static_cast<std::size_t>(row)]);
}

std::uint64_t KXAxisChart::obtainItemRowLength(std::uint64_t) const { return obtainShownCategoryCount(); }

KXChartItem KXAxisChart::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    return _makeItem({getShownSeries()[static_cast<std::size_t>(row)], place});
}

double KXAxisChart::obtainItemValue(const KXChartItem& item) const
{
    return hasItem(item) ? _obtainMarkValue({item.group, item.index})
                         : std::numeric_limits<double>::quiet_NaN();
}

std::string KXAxisChart::obtainItemValueText(const KXChartItem& item) const
{
    return obtainValueText(item.group, obtainItemValue(item));
}
