#pragma once

#include "kx_named_enum.h"

/** The character between groups of three digits. */
KX_NAMED_ENUM(KXChartDataFormatThousandsSeparator, None, Comma, Dot, Space)

/** The character before the decimals. */
KX_NAMED_ENUM(KXChartDataFormatDecimalSeparator, Dot, Comma)

/** How a number below zero is marked. */
KX_NAMED_ENUM(KXChartDataFormatNegative, Dash, RoundBrackets)

/** Whether dates and times use the two preset patterns or the custom one. */
KX_NAMED_ENUM(KXChartDataFormatDateTimeMode, Preset, Custom)
