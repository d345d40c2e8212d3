#pragma once

#include "ux/ux_named_enum.h"

/** The character between groups of three digits. */
UX_NAMED_ENUM(KXChartDataFormatThousandsSeparator, None, Comma, Dot, Space)

/** The character before the decimals. */
UX_NAMED_ENUM(KXChartDataFormatDecimalSeparator, Dot, Comma)

/** How a number below zero is marked. */
UX_NAMED_ENUM(KXChartDataFormatNegative, Dash, RoundBrackets)

/** Whether dates and times use the two preset patterns or the custom one. */
UX_NAMED_ENUM(KXChartDataFormatDateTimeMode, Preset, Custom)
