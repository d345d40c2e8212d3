#include "ux/ux_unmirrored_space.h"

#include "ux/ux_painter.h"

UXUnmirroredSpace::UXUnmirroredSpace(UXPainter& painter, double middle) : m_painter(painter)
{
    m_painter.saveState();
    const UXTransform toDevice = m_painter.getDeviceTransform();
    const bool isMirrored = toDevice.xx * toDevice.yy < toDevice.xy * toDevice.yx;
    if (!isMirrored)
        return;
    m_painter.translate(middle * 2, 0);
    m_painter.scale(-1, 1);
}

UXUnmirroredSpace::~UXUnmirroredSpace() { m_painter.restoreState(); }
