#pragma once

#include "kx_panel_chart_data_provider.h"

/**
 * The data of value lists: with a dimension an item for each of its members, whose value is measure 0 and
 * below which measures 1 and 2 are told, as far as there are any; else an item for each measure.
 */
class KX_EXPORT KXValueListChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXValueListChartDataProvider() override;
};
