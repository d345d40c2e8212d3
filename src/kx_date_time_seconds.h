#pragma once

#include "kx_chart_data_type.h"
#include "kx_export.h"

#include <string>

/** @return the seconds since 1970 of the text of a date or both, of a time those since midnight; NaN for a
 *  text that is none */
[[nodiscard]] KX_EXPORT double kxObtainSeconds(const std::string& text, KXChartDataType type);
