#pragma once

#include "ux/ux_named_enum.h"

/** How small tiles of a tree map are gathered. */
UX_NAMED_ENUM(KXTreeMapChartTileStyle, Default, GroupValueLessThan)
