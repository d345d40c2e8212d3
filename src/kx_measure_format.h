#pragma once

#include "kx_export.h"

#include <cstdint>
#include <vector>

class KXChartDataFormat;

/** @param formats by measure; those past the last one have the common format
 *  @return how the values of a measure are written, one of the two that are lent */
[[nodiscard]] KX_EXPORT const KXChartDataFormat& kxFindMeasureFormat(
    const std::vector<KXChartDataFormat>& formats, std::uint64_t measure, const KXChartDataFormat& common);
