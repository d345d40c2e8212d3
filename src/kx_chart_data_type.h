#pragma once

#include "ux/ux_named_enum.h"

/** The type of a column of data; only Integer and Float are read as numbers. */
UX_NAMED_ENUM(KXChartDataType, String, Integer, Float, Date, Time, DateTime)
