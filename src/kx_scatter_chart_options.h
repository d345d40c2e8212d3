#pragma once

#include "ux/ux_named_enum.h"

/** What a measure is of the points of a chart: where they lie, how large they are, which colour they have. */
enum class KXScatterChartRole : int { X, Y, Size, Color };

/** What the label of a point says. */
UX_NAMED_ENUM(KXScatterLabelContent, Name, X, Y, XAndY)
