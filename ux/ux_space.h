#pragma once

#include "ux/ux_export.h"
#include "ux/ux_point.h"

#include <memory>

/**
 * Moves and scales what an object paints and contains, without touching its rectangle: a point of the
 * object's own space is scaled about the own origin, moved by the relative origin, and only then placed by
 * the rectangle. A space can stand inside another one, its parent, whose origin and scales then apply as
 * well. Objects and child spaces refer to a space without owning it; once it is gone they behave as if they
 * had none.
 */
class UX_EXPORT UXSpace {
public:
    UXSpace();
    ~UXSpace();

    UXSpace(const UXSpace&) = delete;
    UXSpace& operator=(const UXSpace&) = delete;

    /** @return null for a space that stands in none */
    UXSpace* getParent() const { return m_parent.lock().get(); }
    /** A parent that stands inside this space is refused. */
    void setParent(UXSpace* parent);

    /** @return where the space's origin lies in its parent */
    const UXPoint& getRelativeOrigin() const { return m_relativeOrigin; }
    void setRelativeOrigin(UXPoint origin);

    double getXScale() const { return m_xScale; }
    /** A scale that is not above 0, or not finite, is refused. */
    void setXScale(double scale);
    double getYScale() const { return m_yScale; }
    void setYScale(double scale);

    /** @return whether anything was ever set; a space that is not initialized changes nothing */
    bool isInitialized() const { return m_initialized; }

private:
    friend class UXObject;

    // Owns nothing: it lets those who refer to the space notice that it is gone.
    std::shared_ptr<UXSpace> m_self;
    std::weak_ptr<UXSpace> m_parent;
    UXPoint m_relativeOrigin;
    double m_xScale = 1;
    double m_yScale = 1;
    bool m_initialized = false;
};
