#pragma once

#include "kx_panel_chart_data_provider.h"

/**
 * The data of pies: the members of dimension 0 are the slices, and the first measure is their size; with a
 * dimension 1 there is a pie for each of its members. Without a dimension the measures are the slices.
 */
class KX_EXPORT KXPieChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXPieChartDataProvider() override;
};
