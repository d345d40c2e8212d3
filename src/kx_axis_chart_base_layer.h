#pragma once

#include "kx_drawing_layer.h"
#include "kx_export.h"

#include <string>

/** One layer of an axis chart: grid, marks, tick labels or axes. The chart holds its layers in the order in
 *  which they are painted, and each shares the space of the chart's plot. */
class KX_EXPORT KXAxisChartBaseLayer : public KXDrawingLayer {
public:
    KXAxisChartBaseLayer();
    ~KXAxisChartBaseLayer() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
