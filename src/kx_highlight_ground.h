#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"

class UXPainter;
struct UXColor;

/** Draws what lies behind a text that stands out by itself: a soft round ground in the text's own colour. */
KX_EXPORT void kxDrawHighlightGround(UXPainter& painter, const UXDoubleRect& rect, const UXColor& textColor);
