#pragma once

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_hint_data.h"

/** The data of a gauge: its measures are, by index, the value, the target, the minimum and the maximum, each
 * in the cell (measure, 0). A measure that is missing or null counts as not given. */
class KX_EXPORT KXGaugeChartDataProvider : public virtual KXChartDataProvider {
public:
    ~KXGaugeChartDataProvider() override;

    /** @return the hint of the measure at path; an empty one leaves the hint to the chart, which
     * tells the measure's label and the number as it shows it */
    virtual KXChartDataProviderHintData obtainHintData(KXChartDataUser* user, const KXIndexPath& path);
};
