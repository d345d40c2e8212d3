#pragma once

#include "ux/ux_named_enum.h"

/**
 * What becomes of a line that is longer than its width limit: Default leaves it whole, the others cut it at
 * its end, middle or start and put an ellipsis there.
 */
UX_NAMED_ENUM(UXTextOption, Default, EllipsisEnd, EllipsisMiddle, EllipsisStart)
