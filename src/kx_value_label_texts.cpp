#include "kx_value_label_texts.h"

#include "kx_percentages.h"
#include "kx_xy_axis_chart.h"

#include <algorithm>
#include <cmath>

namespace {

/** Of a percentage. */
constexpr int decimals = 1;

} // namespace

void KXValueLabelTexts::clear()
{
    m_facts.clear();
    m_percentages.clear();
}

const KXSeriesFacts& KXValueLabelTexts::obtainFacts(const KXXYAxisChart& chart,
                                                    const KXAxisChartStacks& source, std::size_t position)
{
    if (m_facts.size() != source.series.size()) {
        m_facts.clear();
        for (const KXAxisChartStacks::Series& series : source.series) {
            const std::span<const double> values = chart.getSeriesValues(series.index);
            const std::size_t count = std::min<std::size_t>(values.size(), chart.obtainShownCategoryCount());
            m_facts.push_back(kxObtainSeriesFacts(values.first(count), chart.getCategoryPlaces()));
        }
    }
    return m_facts[position];
}

double KXValueLabelTexts::_obtainPercentage(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                            const KXAxisChartMark& mark, std::size_t position)
{
    std::vector<double> parts;
    parts.reserve(source.series.size());
    if (kxIsStack(source.form)) {
        for (std::size_t i = 0; i < source.series.size(); ++i)
            parts.push_back(std::abs(source.obtainValue(i, mark.category)));
        return kxObtainPercentages(parts, decimals)[position];
    }
    std::vector<double>& percentages = m_percentages[mark.series];
    if (percentages.empty()) {
        const std::uint64_t count = std::min<std::uint64_t>(source.series[position].values.size(),
                                                            chart.obtainShownCategoryCount());
        for (std::uint64_t category = 0; category < count; ++category)
            parts.push_back(std::abs(source.obtainValue(position, category)));
        percentages = kxObtainPercentages(parts, decimals);
    }
    return mark.category < percentages.size() ? percentages[mark.category] : 0;
}

std::string KXValueLabelTexts::obtainPercentageText(const KXXYAxisChart& chart,
                                                    const KXAxisChartStacks& source,
                                                    const KXAxisChartMark& mark, std::size_t position)
{
    return kxFormatPartOfWhole(_obtainPercentage(chart, source, mark, position),
                               std::abs(source.obtainValue(position, mark.category)), decimals);
}

std::string KXValueLabelTexts::obtainText(KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                          const KXAxisChartMark& mark, std::size_t position,
                                          KXAxisChartLabelDisplayOption option, double number)
{
    const auto obtainPart = [&] { return obtainPercentageText(chart, source, mark, position); };
    const std::string value = chart.obtainValueText(mark.series, number);
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
