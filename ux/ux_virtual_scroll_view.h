#pragma once

#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_scroll_bar.h"
#include "ux/ux_scroll_range.h"

#include <cstdint>
#include <optional>

class UXVirtualScrollViewDelegate;

/**
 * Scrolls content that is too large to be objects: it knows how large the content is and which part shows,
 * and its delegate makes objects for that part. A scroll bar takes its thickness from the area beside it
 * while it shows.
 */
class UX_EXPORT UXVirtualScrollView : public UXObject {
public:
    /** The thickness of a scroll bar, which whoever sizes a view adds to what the content needs. */
    static constexpr int extraExtent = UXScrollBar::thickness;

    UXVirtualScrollView();
    ~UXVirtualScrollView() override;

    /** @return null for none */
    UXVirtualScrollViewDelegate* getDelegate() const { return m_delegate; }
    /** @param delegate stays its owner's, and is to be taken away before it goes */
    void setDelegate(UXVirtualScrollViewDelegate* delegate) { m_delegate = delegate; }

    // Content, in logical units; a negative extent is 0
    std::int64_t getContentWidth() const { return m_horizontal.contentExtent; }
    virtual void setContentWidth(std::int64_t width);
    std::int64_t getContentHeight() const { return m_vertical.contentExtent; }
    virtual void setContentHeight(std::int64_t height);

    // Offset: the content's place at the area's top left corner, moved into what there is to scroll
    std::int64_t getContentOffsetX() const { return m_horizontal.offset; }
    virtual void setContentOffsetX(std::int64_t x);
    std::int64_t getContentOffsetY() const { return m_vertical.offset; }
    virtual void setContentOffsetY(std::int64_t y);

    // Scroll bars: enabled at first, shown where the content does not fit
    /** @param repaint on: the view is painted anew */
    virtual void setEnableHorizontalScrollBar(bool enable, bool repaint);
    virtual void setEnableVerticalScrollBar(bool enable, bool repaint);
    /** On: an enabled bar shows also where the content fits. */
    virtual void setAlwaysShowScrollBar(bool alwaysShow);
    bool hasScrollBars() const;
    bool hasHorizontalScrollBar() const;
    bool hasVerticalScrollBar() const;

    /** Sets the colours of both bars, those included that do not show yet; without one a bar shows its own.
     */
    void setScrollBarColor(const std::optional<UXColor>& color);
    void setScrollBarSliderColor(const std::optional<UXColor>& color);
    /** @return the bar, a child; null while it does not show */
    UXScrollBar* getHorizontalScrollBar() const;
    UXScrollBar* getVerticalScrollBar() const;

    /** @return whether scrolling on at an end goes to what lies around the view; off unless set */
    bool getAutoJumpOut() const { return m_autoJumpOut; }
    void setAutoJumpOut(bool autoJumpOut) { m_autoJumpOut = autoJumpOut; }
    const UXPadding& getScrollPadding() const { return m_scrollPadding; }
    /** Keeps room free between the view's edges and the content area, beside the view's own padding. */
    void setScrollPadding(const UXPadding& padding);

    /** @return the extent of the area in which content shows */
    virtual UXSize obtainDisplayArea() const;
    /** @return that area in the own space */
    virtual UXRect obtainScrollContentRect() const;
    /** Scrolls along with another view, which is not asked to follow in turn. */
    virtual void linkedScroll(double distance, bool horizontal);

    // From UXObject
    std::string customSerializeTypeID() override;
    void setRect(UXRect rect) override;
    void setPadding(const UXPadding& padding) override;
    void addChild(UXObject* child) override;
    void addChild(UXObject* child, int position) override;
    /** Hands back all children but the bars, which may be in the user's hand just now. */
    void removeChildren() override;
    /** Destroys all children but the bars. */
    void clearChildren() override;
    void bringChildToFront(UXObject* child) override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

    /** Tells the delegate that the offset has changed.
     *  @param scrollBar the one that the user moved, null for none */
    virtual void contentOffsetChanged(const UXEvent& event, UXScrollBar* scrollBar);
    /** Called before and after the user scrolls: around a drag of a slider, else around a single step. */
    virtual void userScrollingWillStart(const UXEvent& event);
    virtual void userScrollingDidEnd(const UXEvent& event);

private:
    struct Direction {
        std::int64_t contentExtent = 0;
        std::int64_t offset = 0;
        double wheelRest = 0; // what wheel turns have not yet moved, below one unit
        UXObjectWatcher bar{nullptr};
        bool barEnabled = true;
    };
    struct ShownBars {
        bool horizontal, vertical;
    };

    UXRect _obtainAreaWithBars() const;
    ShownBars _obtainShownBars() const;
    bool _shouldShowBar(const Direction& direction, std::int64_t extent) const;
    Direction& _obtainDirection(bool horizontal) { return horizontal ? m_horizontal : m_vertical; }
    UXScrollRange _obtainRange(bool horizontal) const;
    void _setExtent(Direction& direction, std::int64_t extent);
    void _setOffsets(std::int64_t x, std::int64_t y, const UXEvent& event, UXScrollBar* bar);
    void _areaChanged();

    // Bars
    void _colorBars();
    void _updateBars();
    void _updateBar(bool horizontal, bool shown, const UXRect& rect);
    UXScrollBar* _makeBar(bool horizontal);
    UXObject* _obtainLastContentChild() const;
    void _bringBarsToFront();
    bool _isBar(const UXObject* object) const;

    // The user
    UXDoublePoint _obtainWheelDelta(const UXEvent& event) const;
    bool _wantsWheel(const UXEvent& event) const;
    bool _shouldTriggerScroll(bool horizontal);
    bool _scrollBy(bool horizontal, double distance, const UXEvent& event);
    bool _scrollOneStep(bool horizontal, std::int64_t offset, const UXEvent& event);
    void _scrollTo(bool horizontal, std::int64_t offset, const UXEvent& event, UXScrollBar* bar);

    UXVirtualScrollViewDelegate* m_delegate = nullptr;
    Direction m_horizontal;
    Direction m_vertical;
    UXPadding m_scrollPadding;
    std::optional<UXColor> m_barColor;
    std::optional<UXColor> m_barSliderColor;
    std::int64_t m_movedX = 0;
    std::int64_t m_movedY = 0;
    bool m_alwaysShowScrollBar = false;
    bool m_autoJumpOut = false;
};
