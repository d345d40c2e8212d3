#include "sql_number_bins.h"

#include "sql_data_set.h"

DataBinding resolveNumberBins(SqlSession& session, DataBinding binding)
{
    for (DimensionBinding& dimension : binding.dimensions) {
        if (!dimension.bins || !dimension.bins->count)
            continue;
        DataBinding ends = binding;
        ends.dimensions.clear();
        ends.measures = {{dimension.column, SqlAggregate::Minimum, "", ""},
                         {dimension.column, SqlAggregate::Maximum, "", ""}};
        const SqlDataSet found(session, ends);
        dimension.bins->width = obtainRoundBinWidth(found.obtainNumber(0, {}), found.obtainNumber(1, {}),
                                                    *dimension.bins->count);
        dimension.bins->count.reset();
    }
    return binding;
}
