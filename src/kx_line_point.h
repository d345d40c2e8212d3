#pragma once

#include "kx_export.h"
#include "kx_line_chart_options.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_json_object.h"

#include <string>

class UXPainter;

/** A point of a line that is drawn by itself: one that stands out, the one of a legend. */
class KX_EXPORT KXLinePoint : public UXJsonObject {
public:
    /** Of the ring, in logical units. */
    static constexpr double ringWidth = 1.5;

    KXLinePoint();
    ~KXLinePoint() override;

    UXDoublePoint getCentre() const { return m_centre; }
    void setCentre(const UXDoublePoint& centre);
    KXPointShape getShape() const { return m_shape; }
    void setShape(KXPointShape shape);
    double getSize() const { return m_size; }
    /** @param size its width in logical units */
    void setSize(double size);
    UXColor getColor() const { return m_color; }
    void setColor(const UXColor& color);
    UXColor getRingColor() const { return m_ringColor; }
    /** @param color of a ring around the point, which keeps it apart from what it lies on; clear for none */
    void setRingColor(const UXColor& color);

    virtual void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    UXDoublePoint m_centre;
    KXPointShape m_shape = KXPointShape::Circle;
    double m_size = 6;
    UXColor m_color;
    UXColor m_ringColor{0, 0, 0, 0};
};
