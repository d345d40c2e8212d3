#pragma once

#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

class UXScrollContentView;
class UXScrollViewDelegate;

/** Shows a part of a content view that is larger than itself, and lets the user move it. */
class UX_EXPORT UXScrollView : public UXObject, private UXVirtualScrollViewDelegate {
public:
    UXScrollView();
    ~UXScrollView() override;

    /** @return null for none */
    UXScrollViewDelegate* getDelegate() const { return m_delegate; }
    /** @param delegate stays its owner's, and is to be taken away before it goes */
    void setDelegate(UXScrollViewDelegate* delegate) { m_delegate = delegate; }

    /** @return what is scrolled, the view's own; null once someone has destroyed it */
    UXScrollContentView* getContentView() const;
    UXSize getContentSize() const { return m_contentSize; }
    /** Makes the content view that large; a negative extent is 0. */
    void setContentSize(const UXSize& size);
    /** On: bars show also where the content fits. */
    void setAlwaysShowScrollBar(bool alwaysShow);
    /** @return the child that scrolls and carries the bars; null once someone has destroyed it */
    UXVirtualScrollView* getScroller() const;

    // From UXObject
    std::string customSerializeTypeID() override;
    void setRect(UXRect rect) override;
    void setPadding(const UXPadding& padding) override;

private:
    class Scroller;

    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view) override;
    void _placeScroller();
    void _placeContent();

    UXScrollViewDelegate* m_delegate = nullptr;
    UXObjectWatcher m_scroller;
    UXObjectWatcher m_content;
    UXSize m_contentSize;
};
