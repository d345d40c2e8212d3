#pragma once

#include "kx_named_enum.h"

/** How the labels along an axis are turned. */
KX_NAMED_ENUM(KXAxisTickLabelRotationType, Auto, Horizontal, Vertical, Degrees45)

/** Which of the labels along an axis are shown. */
KX_NAMED_ENUM(KXAxisTickLabelIntervalMode, Auto, All, Custom)
