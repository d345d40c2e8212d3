#include "kx_value_label_texts.h"

#include "kx_xy_axis_chart.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double whole = 100;

} // namespace

const KXSeriesFacts& KXValueLabelTexts::obtainFacts(const KXXYAxisChart& chart,
                                                    const KXAxisChartStacks& source, std::size_t position)
{
    if (m_facts.size() != source.series.size()) {
        m_facts.clear();
        for (const KXAxisChartStacks::Series& series : source.series) {
            const std::size_t count = std::min<std::size_t>(series.values.size(),
                                                            chart.obtainShownCategoryCount());
            m_facts.push_back(kxObtainSeriesFacts(series.values.first(count)));
        }
    }
    return m_facts[position];
}

double KXValueLabelTexts::obtainPercentage(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                           const KXAxisChartMark& mark, std::size_t position)
{
    const double all = source.form == KXAxisChartStacking::Plain
                           ? obtainFacts(chart, source, position).magnitude
                           : source.obtainMagnitude(mark.category);
    return all > 0 ? whole * (std::abs(source.obtainValue(position, mark.category)) / all) : 0;
}

std::string KXValueLabelTexts::obtainText(KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                          const KXAxisChartMark& mark, std::size_t position,
                                          KXAxisChartLabelDisplayOption option)
{
    const auto obtainPart = [&] {
        return chart.formatPercentage(obtainPercentage(chart, source, mark, position));
    };
    const std::string value = chart.obtainValueText(mark.series, source.obtainValue(position, mark.category));
    switch (option) {
    case KXAxisChartLabelDisplayOption::ValueOnly:
        break;
    case KXAxisChartLabelDisplayOption::PercentageOnly:
        return obtainPart();
    case KXAxisChartLabelDisplayOption::ValueAndPercentage:
        return value + " (" + obtainPart() + ")";
    case KXAxisChartLabelDisplayOption::Title:
        return chart.getSeriesCount() > 1 ? chart.getSeriesLabel(mark.series)
                                          : chart.obtainCategoryLabel(mark.category);
    }
    return value;
}

bool kxTellsPercentages(KXAxisChartStacking form, KXAxisChartLabelDisplayOption option)
{
    return form == KXAxisChartStacking::Percentage ||
           option == KXAxisChartLabelDisplayOption::PercentageOnly ||
           option == KXAxisChartLabelDisplayOption::ValueAndPercentage;
}
