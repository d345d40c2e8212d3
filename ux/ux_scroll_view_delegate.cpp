#include "ux/ux_scroll_view_delegate.h"

UXScrollViewDelegate::~UXScrollViewDelegate() = default;

void UXScrollViewDelegate::scrollViewWillStartScrolling(UXScrollView*) {}

void UXScrollViewDelegate::scrollViewContentOffsetChanged(UXScrollView*, std::int64_t, std::int64_t) {}

void UXScrollViewDelegate::scrollViewDidEndScrolling(UXScrollView*) {}
