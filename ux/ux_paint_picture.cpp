#include "ux/ux_paint_picture.h"

#include "ux/ux_device_transform.h"
#include "ux/ux_diagram.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

void uxPaintPicture(UXObject& object, UXPaintConfig& config, const UXPictureSetting& setting)
{
    if (UXPainter* painter = uxCreatePainter(&config)) {
        painter->setColor(setting.ground);
        painter->addRectanglePath(0, 0, setting.size.width, setting.size.height);
        painter->fill();
        uxDestroyPainter(painter);
    }
    UXDiagram diagram;
    diagram.setRect(UXRect(0, 0, setting.size.width, setting.size.height));
    diagram.addChild(&object);
    object.setAlign(UXAlign::None);
    object.setRect(uxInflateRect(diagram.getBoundingRect(), -setting.margin, -setting.margin));
    diagram.setDeviceTransform(uxObtainDeviceTransform(config));
    object.setRequireToVerifyLayout(true); // it may have been laid out for the pixels of another device
    diagram.layout();
    diagram.paint(&config, diagram.getBoundingRect());
}
