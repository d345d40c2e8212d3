#pragma once

#include "kx_export.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <variant>
#include <vector>

class UXPainter;

/** A part of a disc, or of the ring around a hole. Angles are the painter's: degrees, 0 to the right, growing
 * clockwise; a sweep of 360 is all around. */
struct KXSector {
    UXDoublePoint center;
    double innerRadius = 0, radius = 0;
    double startDegrees = 0, sweepDegrees = 0; /**< the sweep 0 to 360 */

    friend bool operator==(const KXSector&, const KXSector&) = default;
};

/** The shape in which a panel draws an item: a rectangle, a sector, or a polygon by its corners. */
class KX_EXPORT KXPanelShape {
public:
    /** An empty one. */
    KXPanelShape();
    KXPanelShape(const UXDoubleRect& rect);
    KXPanelShape(const KXSector& sector);
    KXPanelShape(std::vector<UXDoublePoint> corners);

    /** @return the rectangle around it, empty for an empty shape */
    const UXDoubleRect& getBounds() const { return m_bounds; }
    /** @return null for another shape; so the next one */
    const UXDoubleRect* obtainRect() const { return std::get_if<UXDoubleRect>(&m_outline); }
    const KXSector* obtainSector() const { return std::get_if<KXSector>(&m_outline); }
    /** @return a place inside of it where a text stands well */
    UXDoublePoint obtainMiddle() const;
    /** @return places inside of it where a text may stand, that one first */
    std::vector<UXDoublePoint> obtainTextPlaces() const;
    bool holdsPoint(const UXDoublePoint& point) const;
    /** @return whether all of rect lies inside, as far as its corners and the middles of its edges tell */
    bool holdsRect(const UXDoubleRect& rect) const;
    /** @return one whose extent is that times its own; of a sector the thickness */
    KXPanelShape obtainScaled(double ratio) const;
    /** @return what of it is drawn in full: of a rectangle from the bottom up, as texts
     * stand at its top, of a sector from where it starts
     * @param share 0 to 1; a polygon has no parts */
    KXPanelShape obtainPart(double share) const;
    KXPanelShape obtainMoved(const UXDoublePoint& by) const;
    /** Fills it with the painter's colour. */
    void fill(UXPainter& painter) const;
    void stroke(UXPainter& painter) const;

private:
    void _addPath(UXPainter& painter) const;

    std::variant<UXDoubleRect, KXSector, std::vector<UXDoublePoint>> m_outline;
    UXDoubleRect m_bounds;
};
