#pragma once

#include <optional>
#include <string>

#include "kx_chart_data_type.h"

/** @return text in the one form of its type, nothing when it is not of that type; every text is a String */
std::optional<std::string> obtainTypedText(const std::string& text, KXChartDataType type);

/** @return what a value of type is called in a message, "a whole number" */
const char* describeType(KXChartDataType type);
