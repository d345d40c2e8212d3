#pragma once

#include "kx_named_enum.h"

/** The direction in which the values of an axis chart grow. */
KX_NAMED_ENUM(KXAxisChartOrientation, Vertical, Horizontal)
