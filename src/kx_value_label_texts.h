#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_options.h"
#include "kx_axis_chart_stacks.h"
#include "kx_export.h"
#include "kx_value_label_choice.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

class KXXYAxisChart;

/** What the labels of one view's marks say. It keeps what they depend on beside each value. */
class KX_EXPORT KXValueLabelTexts {
public:
    /** Forgets the data. */
    void clear();

    /** @param position of the series in source
     *  @return of the categories that chart shows, until the data are others */
    const KXSeriesFacts& obtainFacts(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                     std::size_t position);
    /** @return the part that a mark has of its stack, or of all values of its series where it stands alone;
     * parts of one whole add up to 100 as they are written */
    std::string obtainPercentageText(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                     const KXAxisChartMark& mark, std::size_t position);
    /** @param number as the mark tells it
     *  @return what the label of a mark says; the host may be asked, and may destroy the chart */
    std::string obtainText(KXXYAxisChart& chart, const KXAxisChartStacks& source, const KXAxisChartMark& mark,
                           std::size_t position, KXAxisChartLabelDisplayOption option, double number);

private:
    double _obtainPercentage(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                             const KXAxisChartMark& mark, std::size_t position);

    std::vector<KXSeriesFacts> m_facts; // of the shown series, made when they are needed
    std::map<std::uint64_t, std::vector<double>> m_percentages; // by series, of those that stand alone
};

/** @return whether marks are about their parts, by their form or by what their labels say */
[[nodiscard]] KX_EXPORT bool kxTellsPercentages(KXAxisChartStacking form,
                                                KXAxisChartLabelDisplayOption option);
