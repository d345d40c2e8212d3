#pragma once

#include <string>

#include "kx_chart_data_type.h"

/** One column of a database table as charts see it. */
struct SqlColumn {
    std::string name;
    KXChartDataType type = KXChartDataType::String;
    std::string declaredType; // as the engine names it, empty where it names none
    bool needsCast = false;   // whether the values are not in the form of the type and have to be cast to it
};
