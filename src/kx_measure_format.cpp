#include "kx_measure_format.h"

#include "kx_chart_data_format.h"

#include <cstddef>

const KXChartDataFormat& kxFindMeasureFormat(const std::vector<KXChartDataFormat>& formats,
                                             std::uint64_t measure, const KXChartDataFormat& common)
{
    return measure < formats.size() ? formats[static_cast<std::size_t>(measure)] : common;
}
