#pragma once

#include "ux/ux_named_enum.h"

/** How one series of an axis chart is drawn, and on which of the two value axes. */
UX_NAMED_ENUM(KXAxisChartType, Unknown, Bar, Line, SecondaryLine, Area, SecondaryArea, Scatter)
