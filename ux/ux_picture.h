#pragma once

#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_paint_function.h"

/** How deep pictures, masks and layers may stand in one another; what is deeper, as one inside itself, is not
 * drawn. */
inline constexpr int uxDeepestPictureNesting = 32;

/** A drawing kept as the function that makes it, so that it is drawn anew, and sharp, at every size. */
class UX_EXPORT UXPicture {
public:
    UXPicture() = default;

    /**
     * Takes the place of an action registered before.
     * @param action draws in a space of its own from (0, 0) to size; kept, so what it refers to has to live
     * as long
     * @param size in logical units; a picture without any is not drawn
     */
    void registerPaintAction(UXPaintFunction action, const UXDoubleSize& size);

    UXDoubleSize getSize() const { return m_size; }

    /** Runs the action with painter, which stands at the picture's top left corner. Null draws nothing. */
    void paint(UXPainter* painter) const;

private:
    UXPaintFunction m_action;
    UXDoubleSize m_size;
};
