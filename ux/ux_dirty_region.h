#pragma once

#include "ux/ux_export.h"
#include "ux/ux_rect.h"

#include <vector>

/**
 * The areas that have to be painted anew, as a few rectangles that share no point. Areas that lie close
 * together are merged, so that painting one after the other never costs much more than painting exactly what
 * changed.
 */
class UX_EXPORT UXDirtyRegion {
public:
    /** More areas than this are merged, those first that waste the least. */
    static constexpr std::size_t maxRectCount = 8;

    /** @return whether the region grew: false for an empty rectangle and for one that it holds already */
    bool add(const UXRect& rect);
    void clear() { m_rects.clear(); }

    bool isEmpty() const { return m_rects.empty(); }
    const std::vector<UXRect>& getRects() const { return m_rects; }
    /** @return the smallest rectangle around all areas, (0, 0, 0, 0) without any */
    UXRect obtainBounds() const;
    bool intersects(const UXRect& rect) const;

private:
    std::vector<UXRect> m_rects;
};
