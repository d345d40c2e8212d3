#pragma once

#include "ux/ux_named_enum.h"

/** To which side lines of text and what is ordered like them run: as around the object, or one of the two. */
UX_NAMED_ENUM(UXDirection, AsParent, LeftToRight, RightToLeft)
