#pragma once

#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_json_object.h"

#include <string>

class UXPainter;

/** A circle that is drawn by itself, filled, with a line inside of its edge, or both: one of a legend of
 * sizes. */
class KX_EXPORT KXCircle : public UXJsonObject {
public:
    KXCircle();
    /** @param diameter in logical units
     *  @param color of what is filled; clear for nothing
     *  @param lineColor of the line; clear for none */
    KXCircle(const UXDoublePoint& centre, double diameter, const UXColor& color, const UXColor& lineColor);
    ~KXCircle() override;

    UXDoublePoint getCentre() const { return m_centre; }
    double getDiameter() const { return m_diameter; }
    UXColor getColor() const { return m_color; }
    UXColor getLineColor() const { return m_lineColor; }

    void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    UXDoublePoint m_centre;
    double m_diameter = 8;
    UXColor m_color, m_lineColor{0, 0, 0, 0};
};
