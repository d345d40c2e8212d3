#pragma once

#include "kx_named_enum.h"

/** The kind of control a filter shows. */
KX_NAMED_ENUM(KXControlChartStyle, Default, List, Range, Combo)
