#pragma once

#include "ux/ux_export.h"

#include <cstdint>

class UXScrollView;

/** Hears what becomes of a scroll view. By default it does nothing. */
class UX_EXPORT UXScrollViewDelegate {
public:
    virtual ~UXScrollViewDelegate();

    /** The user begins to scroll. */
    virtual void scrollViewWillStartScrolling(UXScrollView* view);
    /** @param x,y the content's place at the view's top left corner, logical units */
    virtual void scrollViewContentOffsetChanged(UXScrollView* view, std::int64_t x, std::int64_t y);
    virtual void scrollViewDidEndScrolling(UXScrollView* view);
};
