#include "ux/ux_text_placement.h"

#include <algorithm>

UXDoubleRect uxPlaceText(const UXDoubleSize& size, const UXDoubleRect& rect, UXTextAlign align)
{
    const double freeWidth = rect.width - size.width;
    const double freeHeight = std::max(0.0, rect.height - size.height);
    const double share = align == UXTextAlign::Left ? 0 : align == UXTextAlign::Center ? 0.5 : 1;
    return {rect.x + freeWidth * share, rect.y + freeHeight / 2, size.width, size.height};
}
