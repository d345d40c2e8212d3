#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_text_align.h"

/**
 * Where the lines of a text stand in the rectangle that they are drawn in, for every painter.
 * @param size what the text measurer answers for the text at the width of rect
 * @return a rectangle of that size: to the left, right or middle of rect by align, in the middle of its
 * height, or at its top where the lines are higher than rect
 */
[[nodiscard]] UX_EXPORT UXDoubleRect uxPlaceText(const UXDoubleSize& size, const UXDoubleRect& rect,
                                                 UXTextAlign align);
