#pragma once

#include "kx_panel_chart_data_provider.h"

/**
 * The data of KPI charts: measure 0 is the actual value, 1 what it is compared with, 2 and 3 the lower and
 * the upper bound, as far as there are any; with a dimension there is a panel for each of its members, else
 * one.
 */
class KX_EXPORT KXKpiChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXKpiChartDataProvider() override;
};
