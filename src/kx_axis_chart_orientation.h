#pragma once

#include "ux/ux_named_enum.h"

/** The direction in which the values of an axis chart grow. */
UX_NAMED_ENUM(KXAxisChartOrientation, Vertical, Horizontal)
