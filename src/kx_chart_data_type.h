#pragma once

#include "kx_named_enum.h"

/** The type of a column of data; only Integer and Float are read as numbers. */
KX_NAMED_ENUM(KXChartDataType, String, Integer, Float, Date, Time, DateTime)
