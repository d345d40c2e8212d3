#pragma once

#include "ux/ux_named_enum.h"

/** How the labels along an axis are turned. */
UX_NAMED_ENUM(KXAxisTickLabelRotationType, Auto, Horizontal, Vertical, Degrees45)

/** Which of the labels along an axis are shown. */
UX_NAMED_ENUM(KXAxisTickLabelIntervalMode, Auto, All, Custom)
