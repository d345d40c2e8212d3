#pragma once

#include "ux/ux_export.h"

#include <cstdint>

class UXEvent;
class UXObject;
class UXVirtualScrollView;

/** Fills a virtual scroll view with what its present offset shows. */
class UX_EXPORT UXVirtualScrollViewDelegate {
public:
    virtual ~UXVirtualScrollViewDelegate();

    /** @return whether object is painted inside the view's content area only; by default it is */
    virtual bool shouldClipInScrollArea(UXVirtualScrollView* view, UXObject* object);
    /** @return whether the user may scroll now in that direction; by default so */
    virtual bool virtualScrollViewShouldTriggerScroll(UXVirtualScrollView* view, bool horizontal);

    // The offset has changed; each form is called, in this order. The event is empty when no user did it.
    virtual void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event);
    virtual void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view);
    /** @param x,y how far it has moved */
    virtual void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, std::int64_t x,
                                                       std::int64_t y, const UXEvent& event);

    /** @return whether another view scrolls along with this one; by default not */
    virtual bool shouldLinkScrolling(UXVirtualScrollView* view);
    /** Asks for the other view to be scrolled as far, with its linkedScroll. */
    virtual void linkedScrollingRequested(UXVirtualScrollView* view, double distance, const UXEvent& event,
                                          bool horizontal);
};
