#pragma once

#include "kx_named_enum.h"

/** Where the label of a bar stands. */
KX_NAMED_ENUM(KXBarLabelPosition, InsideBase, InsideCenter, InsideEnd, Outside)

/** What happens to a label that its bar cannot hold. */
KX_NAMED_ENUM(KXBarLabelOverflow, Visible, Hidden)
