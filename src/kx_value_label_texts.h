#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_options.h"
#include "kx_axis_chart_stacks.h"
#include "kx_export.h"
#include "kx_value_label_choice.h"

#include <cstddef>
#include <string>
#include <vector>

class KXXYAxisChart;

/** What the labels of one view's marks say. It keeps what they depend on beside each value. */
class KX_EXPORT KXValueLabelTexts {
public:
    /** Forgets the data. */
    void clear() { m_facts.clear(); }

    /** @param position of the series in source
     *  @return of the categories that chart shows, until the data are others */
    const KXSeriesFacts& obtainFacts(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                                     std::size_t position);
    /** @return the part that a mark has of its stack, or of all values of its series where it stands alone */
    double obtainPercentage(const KXXYAxisChart& chart, const KXAxisChartStacks& source,
                            const KXAxisChartMark& mark, std::size_t position);
    /** @return what the label of a mark says; the host may be asked, and may destroy the chart */
    std::string obtainText(KXXYAxisChart& chart, const KXAxisChartStacks& source, const KXAxisChartMark& mark,
                           std::size_t position, KXAxisChartLabelDisplayOption option);

private:
    std::vector<KXSeriesFacts> m_facts; // of the shown series, made when they are needed
};

/** @return whether marks are about their parts, by their form or by what their labels say */
[[nodiscard]] KX_EXPORT bool kxTellsPercentages(KXAxisChartStacking form,
                                                KXAxisChartLabelDisplayOption option);
