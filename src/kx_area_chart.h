#pragma once

#include "kx_line_chart.h"

#include <string>

/** Fills what lies between zero and the line of each series, or, stacked, between it and the one before. */
class KX_EXPORT KXAreaChart : public KXLineChart {
public:
    KXAreaChart();
    ~KXAreaChart() override;

    std::string customSerializeTypeID() override;
};
