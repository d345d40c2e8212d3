#pragma once

#include "kx_export.h"
#include "ux/ux_object.h"

#include <string>

/** One layer of an axis chart: grid, marks, tick labels or axes. The chart holds its layers in the order in
 *  which they are painted, and each shares the space of the chart's plot. */
class KX_EXPORT KXAxisChartBaseLayer : public UXObject {
public:
    KXAxisChartBaseLayer();
    ~KXAxisChartBaseLayer() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
