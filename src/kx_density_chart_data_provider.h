#pragma once

#include "kx_panel_chart_data_provider.h"

#include <cstdint>

/**
 * The data of density charts: the members of dimension 0 are the groups and those of dimension 1 the bins,
 * each from its number (obtainDimensionDataAsNumber) on, as wide as its range difference; a width that is not
 * above zero is its neighbour's. The first measure says how many values lie in each, or what these weigh.
 * With one dimension alone its members are the bins of a single group.
 */
class KX_EXPORT KXDensityChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXDensityChartDataProvider() override;

    /** @param share 0.5 for the median
     *  @return the value that this share of a group's values lies below; NaN, as by default, where the chart
     * is to estimate it from the bins, which its hint says */
    virtual double obtainQuantile(KXChartDataUser* user, std::uint64_t group, double share);
    /** @return the mean of a group's values, or NaN likewise */
    virtual double obtainMean(KXChartDataUser* user, std::uint64_t group);
};
