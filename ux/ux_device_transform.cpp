#include "ux/ux_device_transform.h"

#include "ux/ux_diagram.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"

UXTransform uxObtainDeviceTransform(const UXObject& object)
{
    const UXObject* root = &object;
    while (root->getParent())
        root = root->getParent();
    const UXTransform toRoot = object.obtainTransformToParent(nullptr);
    const auto* diagram = dynamic_cast<const UXDiagram*>(root);
    return diagram ? diagram->getDeviceTransform().combined(toRoot) : toRoot;
}

UXTransform uxObtainDeviceTransform(UXPaintConfig& config)
{
    UXPainter* painter = uxCreatePainter(&config);
    const UXTransform toDevice = painter ? painter->getDeviceTransform() : UXTransform();
    uxDestroyPainter(painter);
    return toDevice;
}
