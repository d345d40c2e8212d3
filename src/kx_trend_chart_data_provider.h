#pragma once

#include "kx_axis_chart_data_provider.h"

/**
 * The data of trends: the members of dimension 0 are the steps in their order, and the first measure is what
 * runs along them. Steps that are dates have their numbers (obtainDimensionDataAsNumber) in seconds since
 * 1970, by which a comparison finds the same time a year before.
 */
class KX_EXPORT KXTrendChartDataProvider : public KXAxisChartDataProvider {
public:
    ~KXTrendChartDataProvider() override;
};
