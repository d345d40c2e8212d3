#include "ux/ux_ground.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

void uxDrawGround(UXPainter& painter, const UXObject& object, double cornerRadius)
{
    const UXDoubleRect bounds(object.getBoundingRect());
    if (object.getBackgroundColor().alpha > 0) {
        painter.setColor(object.getBackgroundColor());
        uxAddRoundRectanglePath(painter, bounds, cornerRadius);
        painter.fill();
    }
    if (object.getShowBorder()) {
        // The line's middle runs half a unit inside, so that the whole line stays within the object.
        painter.setColor(object.getBorderColor());
        painter.setLineWidth(1);
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -0.5, -0.5), cornerRadius);
        painter.stroke();
    }
}

UXColor uxObtainGroundColor(const UXObject& object)
{
    for (const UXObject* under = &object; under; under = under->getParent())
        if (under->getBackgroundColor().alpha >= 1)
            return under->getBackgroundColor();
    return {255, 255, 255};
}
