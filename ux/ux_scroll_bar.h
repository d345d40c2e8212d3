#pragma once

#include "ux/ux_arrangement.h"
#include "ux/ux_object.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_scroll_range.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

class UXScrollBarSlider;

/** Shows where in some content the shown part lies, and lets the user move it: by dragging the slider, and by
 * a click beside it for a page. It knows no content, only a range, and tells its handlers what the user
 * wants. */
class UX_EXPORT UXScrollBar : public UXObject {
public:
    /** The thickness that a bar is made for, in logical units. */
    static constexpr int thickness = 12;

    /** What becomes of the user's wish. The bar does not move by itself: setRange does that. */
    struct Handlers {
        std::function<void(const UXEvent& event)> willStart;
        std::function<void(std::int64_t offset, const UXEvent& event)> offsetRequested;
        std::function<void(const UXEvent& event)> didEnd;
    };

    /** @param direction Row lies, Column stands */
    explicit UXScrollBar(UXArrangement direction = UXArrangement::Column);
    ~UXScrollBar() override;

    UXArrangement getDirection() const { return m_direction; }
    const UXScrollRange& getRange() const { return m_range; }
    void setRange(const UXScrollRange& range);
    void setHandlers(const Handlers& handlers) { m_handlers = handlers; }

    /** @return the colour that was set; none where the bar shows its own, and only under the pointer */
    const std::optional<UXColor>& getTrackColor() const { return m_trackColor; }
    void setTrackColor(const std::optional<UXColor>& color);
    /** @return the resting slider's; under the pointer it is darker */
    const std::optional<UXColor>& getSliderColor() const { return m_sliderColor; }
    void setSliderColor(const std::optional<UXColor>& color);

    /** @return the slider's rectangle in the own space; empty where there is nothing to scroll */
    UXRect obtainSliderRect() const;
    /** @return a child, null once someone has destroyed it */
    UXScrollBarSlider* getSlider() const;

    // What the slider passes on
    bool isDragging() const { return m_dragging; }
    void beginDrag(const UXEvent& event);
    void drag(const UXEvent& event);
    void endDrag(const UXEvent& event);

    // From UXObject
    std::string customSerializeTypeID() override;
    void setRect(UXRect rect) override;
    void setVisible(bool visible) override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseEnter(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;

private:
    int _obtainTrack() const;
    int _obtainAlong(const UXEvent& event) const;
    void _placeSlider();

    UXArrangement m_direction;
    UXScrollRange m_range;
    Handlers m_handlers;
    UXObjectWatcher m_slider;
    std::optional<UXColor> m_trackColor;
    std::optional<UXColor> m_sliderColor;
    UXScrollRange m_grabbedRange;
    UXSliderSpan m_grabbedSpan;
    int m_grabbedAlong = 0;
    bool m_dragging = false;
};
