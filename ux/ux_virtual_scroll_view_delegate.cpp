#include "ux/ux_virtual_scroll_view_delegate.h"

UXVirtualScrollViewDelegate::~UXVirtualScrollViewDelegate() = default;

bool UXVirtualScrollViewDelegate::shouldClipInScrollArea(UXVirtualScrollView*, UXObject*) { return true; }

bool UXVirtualScrollViewDelegate::virtualScrollViewShouldTriggerScroll(UXVirtualScrollView*, bool)
{
    return true;
}

void UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, const UXEvent&)
{
}

void UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged(UXVirtualScrollView*) {}

void UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, std::int64_t,
                                                                        std::int64_t, const UXEvent&)
{
}

bool UXVirtualScrollViewDelegate::shouldLinkScrolling(UXVirtualScrollView*) { return false; }

void UXVirtualScrollViewDelegate::linkedScrollingRequested(UXVirtualScrollView*, double, const UXEvent&, bool)
{
}
