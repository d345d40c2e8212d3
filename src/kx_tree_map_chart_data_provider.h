#pragma once

#include "kx_panel_chart_data_provider.h"

/**
 * The data of tree maps: the members of dimension 0 are the tiles, and the first measure is their size; with
 * a dimension 1 they stand in a group for each of its members. A second measure gives them their colours. A
 * host with many tiles, each in one group, answers them as a list (obtainItemCount). Without a dimension the
 * measures are the tiles.
 */
class KX_EXPORT KXTreeMapChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXTreeMapChartDataProvider() override;
};
