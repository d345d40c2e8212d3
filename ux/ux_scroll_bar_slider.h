#pragma once

#include "ux/ux_object.h"

class UXScrollBar;

/** The part of a scroll bar that is dragged. It stands on a UXScrollBar, which gives it its place. */
class UX_EXPORT UXScrollBarSlider : public UXObject {
public:
    UXScrollBarSlider();
    ~UXScrollBarSlider() override;

    // From UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;
    bool customMouseEnter(const UXEvent& event, bool& stop) override;
    bool customMouseLeave(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;

private:
    UXScrollBar* _obtainBar() const;
    UXColor _obtainSliderColor() const;
};
