#include "ux/ux_scroll_view.h"

#include "ux/ux_scroll_content_view.h"
#include "ux/ux_scroll_view_delegate.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>

/** Passes on when the user begins and ends to scroll. */
class UXScrollView::Scroller : public UXVirtualScrollView {
public:
    explicit Scroller(UXScrollView& owner) : m_owner(owner) {}

protected:
    void userScrollingWillStart(const UXEvent&) override
    {
        if (m_owner.m_delegate)
            m_owner.m_delegate->scrollViewWillStartScrolling(&m_owner);
    }
    void userScrollingDidEnd(const UXEvent&) override
    {
        if (m_owner.m_delegate)
            m_owner.m_delegate->scrollViewDidEndScrolling(&m_owner);
    }

private:
    UXScrollView& m_owner;
};

UXScrollView::UXScrollView() : m_scroller(nullptr), m_content(nullptr)
{
    auto* scroller = new Scroller(*this);
    auto* content = new UXScrollContentView;
    m_scroller = UXObjectWatcher(scroller);
    m_content = UXObjectWatcher(content);
    scroller->setDelegate(this);
    scroller->addChild(content);
    addChild(scroller);
}

UXScrollView::~UXScrollView()
{
    // The scroller calls back into this object, so it goes first, when nobody paints this any more.
    setParent(nullptr);
    delete m_scroller.getObject();
}

UXScrollContentView* UXScrollView::getContentView() const
{
    return static_cast<UXScrollContentView*>(m_content.getObject());
}

void UXScrollView::setContentSize(const UXSize& size)
{
    m_contentSize = {std::max(size.width, 0), std::max(size.height, 0)};
    UXObjectWatcher watcher(this);
    if (UXVirtualScrollView* scroller = getScroller())
        scroller->setContentWidth(m_contentSize.width);
    UXVirtualScrollView* scroller = watcher.isAlive() ? getScroller() : nullptr;
    if (scroller)
        scroller->setContentHeight(m_contentSize.height);
    if (watcher.isAlive())
        _placeContent();
}

void UXScrollView::setAlwaysShowScrollBar(bool alwaysShow)
{
    if (UXVirtualScrollView* scroller = getScroller())
        scroller->setAlwaysShowScrollBar(alwaysShow);
}

UXVirtualScrollView* UXScrollView::getScroller() const
{
    return static_cast<UXVirtualScrollView*>(m_scroller.getObject());
}

std::string UXScrollView::customSerializeTypeID() { return "UXScrollView"; }

void UXScrollView::setRect(UXRect rect)
{
    UXObjectWatcher watcher(this);
    UXObject::setRect(rect);
    if (watcher.isAlive())
        _placeScroller();
}

void UXScrollView::setPadding(const UXPadding& padding)
{
    UXObjectWatcher watcher(this);
    UXObject::setPadding(padding);
    if (watcher.isAlive())
        _placeScroller();
}

void UXScrollView::virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view)
{
    const std::int64_t x = view->getContentOffsetX(), y = view->getContentOffsetY();
    UXObjectWatcher watcher(this);
    _placeContent();
    if (watcher.isAlive() && m_delegate)
        m_delegate->scrollViewContentOffsetChanged(this, x, y);
}

void UXScrollView::_placeScroller()
{
    if (UXVirtualScrollView* scroller = getScroller())
        scroller->setRect(getContentRect());
}

void UXScrollView::_placeContent()
{
    UXVirtualScrollView* scroller = getScroller();
    UXScrollContentView* content = getContentView();
    if (scroller && content)
        content->setRect({uxSaturateToInt(-scroller->getContentOffsetX()),
                          uxSaturateToInt(-scroller->getContentOffsetY()), m_contentSize.width,
                          m_contentSize.height});
}
