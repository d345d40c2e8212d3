#pragma once

#include "ux/ux_named_enum.h"

/** Whether items stand beside each other or below each other. */
UX_NAMED_ENUM(UXArrangement, Row, Column)
