#pragma once

#include "kx_named_enum.h"

/** How one series of an axis chart is drawn, and on which of the two value axes. */
KX_NAMED_ENUM(KXAxisChartType, Unknown, Bar, Line, SecondaryLine, Area, SecondaryArea, Scatter)
