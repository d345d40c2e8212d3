#pragma once

#include "ux/ux_double_rect.h"

#include <string>

/** A text of a drawing, and where it is seen. */
struct DrawnText {
    std::string text;
    UXDoubleRect bounds; /**< in logical units of the root's space */
};
