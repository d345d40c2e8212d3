#pragma once

#include "kx_axis_chart_drawn_data.h"
#include "kx_bar_chart.h"

#include <memory>

/**
 * Bars of series and categories that the chart makes of its data: other ones, or in another order. They are
 * made anew with each reload. How the value axis stacks series means nothing to them.
 */
class KX_EXPORT KXDerivedBarChart : public KXBarChart {
public:
    ~KXDerivedBarChart() override;

    // From KXChart and UXJsonObject
    void customReloadData() override;
    std::string customSerializeVersion() override;

protected:
    /** @param view draws the bars, and belongs to the chart */
    explicit KXDerivedBarChart(std::unique_ptr<KXBarChartDataView> view);

    /** Makes of what was pulled what is drawn, and asks nobody. */
    virtual KXAxisChartDrawnData _deriveData() = 0;

    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;
};
