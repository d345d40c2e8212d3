#pragma once

#include "kx_export.h"
#include "kx_line_point.h"
#include "ux/ux_double_point.h"

#include <span>
#include <string>

/** A point of a scatter chart that is drawn by itself, as one that stands out; hollow where it has no size.
 */
class KX_EXPORT KXScatterPoint : public KXLinePoint {
public:
    KXScatterPoint();
    ~KXScatterPoint() override;

    bool getIsHollow() const { return m_isHollow; }
    void setIsHollow(bool isHollow);

    /** Draws rings of that width with the source of the painter, whatever the shape of filled points is. */
    static void paintRings(UXPainter& painter, std::span<const UXDoublePoint> centres, double diameter);

    // From KXLinePoint
    void paint(UXPainter& painter) const override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    bool m_isHollow = false;
};
