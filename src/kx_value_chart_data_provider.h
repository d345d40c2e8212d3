#pragma once

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_hint_data.h"

/** The data of a value chart: one value, in the cell (0, 0). */
class KX_EXPORT KXValueChartDataProvider : public virtual KXChartDataProvider {
public:
    ~KXValueChartDataProvider() override;

    /** @return the hint of the value at path; an empty one leaves the hint to the chart, which
     * tells the value's label and the value as it shows it */
    virtual KXChartDataProviderHintData obtainHintData(KXChartDataUser* user, const KXIndexPath& path);
};
