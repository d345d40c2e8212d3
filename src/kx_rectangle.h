#pragma once

#include "kx_export.h"
#include "kx_interaction_chart_object.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"

#include <string>
#include <vector>

/** A rectangle in one colour, its edges on whole device pixels: a piece of a chart that is drawn as an object
 * of its own, and can look different and stand out. */
class KX_EXPORT KXRectangle : public UXObject, public KXInteractionChartObject {
public:
    KXRectangle();
    ~KXRectangle() override;

    // From KXInteractionChartObject, UXJsonObject and UXObject
    void updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects) override;
    void updateHighlightState(KXHighlightState state) override;
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    /** @return what is filled, in the own space; by default all of it */
    virtual UXDoubleRect obtainFilledRect() const;
};
