#pragma once

#include "ux/ux_named_enum.h"

/** Where a hint stands: above the value that it explains, or at the top of the object that shows it. */
UX_NAMED_ENUM(UXHintPosition, AboveValue, Top)
