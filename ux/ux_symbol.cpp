#include "ux/ux_symbol.h"

#include "ux/ux_event.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_symbol_shape.h"

UXSymbol::UXSymbol() = default;

UXSymbol::~UXSymbol() = default;

UXSymbolStyle UXSymbol::getSymbolStyle() const { return m_symbolStyle; }

void UXSymbol::setSymbolStyle(UXSymbolStyle style)
{
    if (m_symbolStyle == style)
        return;
    m_symbolStyle = style;
    invalidate();
}

bool UXSymbol::ptInShape(UXPoint point)
{
    // The middle of the pixel that the pointer is on.
    const UXDoublePoint middle(point.x + 0.5, point.y + 0.5);
    return uxPointInSymbol(m_symbolStyle, UXDoubleRect(getBoundingRect()), middle);
}

void UXSymbol::customSerialize()
{
    UXSelectableObject::customSerialize();
    serializeUXSymbolStyle("m_symbolStyle", m_symbolStyle);
}

std::string UXSymbol::customSerializeTypeID() { return "UXSymbol"; }

bool UXSymbol::customDeserialize()
{
    const UXObjectWatcher watcher(this);
    const bool complete = UXSelectableObject::customDeserialize();
    return watcher.isAlive() && deserializeUXSymbolStyle("m_symbolStyle", m_symbolStyle) && complete;
}

void UXSymbol::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        uxDrawSymbol(*painter, m_symbolStyle, UXDoubleRect(getBoundingRect()), obtainStateColor());
        uxDestroyPainter(painter);
    }
    UXSelectableObject::paint(config, dirtyRect);
}

bool UXSymbol::_isOverShape(const UXEvent& event)
{
    return ptInShape(getTranslatedPointFromEvent(event, this));
}

bool UXSymbol::shouldTriggerMouseDown(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseMove(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseUp(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseEnter(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseWheel(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseDoubleClick(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseDrop(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseDragEnter(const UXEvent& event) { return _isOverShape(event); }
bool UXSymbol::shouldTriggerMouseDragOver(const UXEvent& event) { return _isOverShape(event); }

// What has begun here ends here, wherever the pointer is by then; keys have no place.
bool UXSymbol::shouldTriggerMouseLeave(const UXEvent&) { return true; }
bool UXSymbol::shouldTriggerMouseDragging(const UXEvent&) { return true; }
bool UXSymbol::shouldTriggerMouseDragLeave(const UXEvent&) { return true; }
bool UXSymbol::shouldTriggerKeyDown(const UXEvent&) { return true; }
bool UXSymbol::shouldTriggerKeyUp(const UXEvent&) { return true; }
