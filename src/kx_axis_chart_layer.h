#pragma once

#include "kx_axis_chart_base_layer.h"

#include <string>

/** A layer whose content the chart draws: the marks, or their labels. It covers the whole plot, so that its
 *  space is the plot's. */
class KX_EXPORT KXAxisChartLayer : public KXAxisChartBaseLayer {
public:
    KXAxisChartLayer();
    ~KXAxisChartLayer() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
