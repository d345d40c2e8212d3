#pragma once

#include "kx_named_enum.h"

/** How small tiles of a tree map are gathered. */
KX_NAMED_ENUM(KXTreeMapChartTileStyle, Default, GroupValueLessThan)
