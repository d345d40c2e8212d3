#pragma once

#include "ux/ux_named_enum.h"

/** Where the label of a bar stands. */
UX_NAMED_ENUM(KXBarLabelPosition, InsideBase, InsideCenter, InsideEnd, Outside)

/** What happens to a label that its bar cannot hold. */
UX_NAMED_ENUM(KXBarLabelOverflow, Visible, Hidden)
