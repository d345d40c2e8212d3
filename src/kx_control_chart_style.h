#pragma once

#include "ux/ux_named_enum.h"

/** The kind of control a filter shows. */
UX_NAMED_ENUM(KXControlChartStyle, Default, List, Range, Combo)
