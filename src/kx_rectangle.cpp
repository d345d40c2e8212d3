#include "kx_rectangle.h"

#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"

KXRectangle::KXRectangle() = default;
KXRectangle::~KXRectangle() = default;

void KXRectangle::updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects)
{
    KXInteractionChartObject::updateInteractionEffects(effects);
    invalidate();
}

void KXRectangle::updateHighlightState(KXHighlightState state)
{
    KXInteractionChartObject::updateHighlightState(state);
    invalidate();
}

std::string KXRectangle::customSerializeTypeID() { return "KXRectangle"; }

UXDoubleRect KXRectangle::obtainFilledRect() const { return UXDoubleRect(getBoundingRect()); }

void KXRectangle::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const UXDoubleRect rect = obtainFilledRect();
        painter->setColor(obtainDrawnColor(getColor(), KXInteractionEffectTarget::Filled));
        painter->drawRects({&rect, 1});
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}
