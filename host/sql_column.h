#pragma once

#include <string>

#include "kx_chart_data_type.h"

/** One column of a database table as charts see it. */
struct SqlColumn {
    std::string name;
    KXChartDataType type = KXChartDataType::String;
};
