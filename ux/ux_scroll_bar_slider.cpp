#include "ux/ux_scroll_bar_slider.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"
#include "ux/ux_scroll_bar.h"

#include <algorithm>

namespace {

constexpr UXColor restingColor{196, 199, 207};
constexpr UXColor hoveredColor{164, 168, 178};
constexpr UXColor draggedColor{132, 137, 149};

// A colour that was set keeps this share of its brightness.
constexpr double hoveredShare = 0.84;
constexpr double draggedShare = 0.68;

UXColor darken(const UXColor& color, double share)
{
    const auto part = [share](int channel) { return uxSaturateToInt(channel * share); };
    return {part(color.red), part(color.green), part(color.blue), color.alpha};
}

constexpr double restingInset = 3; // logical units, on every side
constexpr double activeInset = 2;

} // namespace

UXScrollBarSlider::UXScrollBarSlider()
{
    registerEventResponder(UXEventResponderType::Drag, [](const UXEvent&) { return true; });
}

UXScrollBarSlider::~UXScrollBarSlider() = default;

std::string UXScrollBarSlider::customSerializeTypeID() { return "UXScrollBarSlider"; }

void UXScrollBarSlider::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const double inset = getMouseOvering() || getMousePressing() ? activeInset : restingInset;
        const UXDoubleRect shape = uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), -inset, -inset);
        painter->setColor(_obtainSliderColor());
        uxAddRoundRectanglePath(*painter, shape, std::min(shape.width, shape.height) / 2);
        painter->fill();
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

bool UXScrollBarSlider::customMouseDown(const UXEvent& event, bool&)
{
    UXScrollBar* bar = _obtainBar();
    if (!bar || event.containsEventKey(UXEventKey::RightButton))
        return false;
    invalidate();
    bar->beginDrag(event);
    return true;
}

bool UXScrollBarSlider::customMouseUp(const UXEvent& event, bool&)
{
    invalidate();
    UXScrollBar* bar = _obtainBar();
    if (!bar || !bar->isDragging())
        return false;
    bar->endDrag(event);
    return true;
}

bool UXScrollBarSlider::customMouseEnter(const UXEvent&, bool&)
{
    invalidate();
    return false;
}

bool UXScrollBarSlider::customMouseLeave(const UXEvent&, bool&)
{
    invalidate();
    return false;
}

bool UXScrollBarSlider::customMouseDragging(const UXEvent& event, bool&)
{
    UXScrollBar* bar = _obtainBar();
    if (!bar || !bar->isDragging())
        return false;
    bar->drag(event);
    return true;
}

UXScrollBar* UXScrollBarSlider::_obtainBar() const { return dynamic_cast<UXScrollBar*>(getParent()); }

UXColor UXScrollBarSlider::_obtainSliderColor() const
{
    const UXScrollBar* bar = _obtainBar();
    const std::optional<UXColor> own = bar ? bar->getSliderColor() : std::nullopt;
    if (bar && bar->isDragging())
        return own ? darken(*own, draggedShare) : draggedColor;
    if (getMouseOvering())
        return own ? darken(*own, hoveredShare) : hoveredColor;
    return own.value_or(restingColor);
}
