#pragma once

#include <map>
#include <string>
#include <vector>

#include "dimension_binding.h"
#include "filter_binding.h"
#include "kx_chart_data_type.h"
#include "measure_binding.h"

/** Which columns of a table become the dimensions and the values of a chart. */
struct DataBinding {
    std::string name = "binding"; // what errors call it, the file it came from
    std::string schema;           // of the table, empty where the database finds the table by its name
    std::string table = "data";
    std::map<std::string, KXChartDataType> columnTypes; // what columns hold, whatever the database says
    std::vector<DimensionBinding> dimensions;
    std::vector<MeasureBinding> measures;
    std::vector<FilterBinding> filters;         // all of them must hold
    std::vector<FilterAlternatives> choices;    // what is chosen elsewhere; all of it must hold too
    std::vector<FilterAlternatives> highlights; // the same, of which the part is told that holds it
    std::string nullText = "(null)";
    bool totals = false; // of two dimensions those of each one, where a chart shows them
};
