#pragma once

#include "kx_export.h"
#include "kx_heat_map_header_panel.h"

#include <string>

/** The names of the columns, above the cells of a heat map. */
class KX_EXPORT KXChartHeatMapColumnHeaderPanel : public KXHeatMapHeaderPanel {
public:
    KXChartHeatMapColumnHeaderPanel();
    ~KXChartHeatMapColumnHeaderPanel() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
