#pragma once

#include "kx_chart_data_format.h"
#include "kx_export.h"
#include "kx_key_type.h"

/** Whether all keys are the same. */
KX_EXPORT bool operator==(const KXChartDataFormat& a, const KXChartDataFormat& b);

/** Formats stand in lists, one for each measure, each an object of its own. */
template <>
struct KXKeyTypeOf<KXChartDataFormat> {
    KX_EXPORT static const UXPropertyType& obtain();
};
