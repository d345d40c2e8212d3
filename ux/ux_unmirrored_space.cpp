#include "ux/ux_unmirrored_space.h"

#include "ux/ux_painter.h"

UXUnmirroredSpace::UXUnmirroredSpace(UXPainter& painter, double middle) : m_painter(painter)
{
    const UXTransform toDevice = m_painter.getDeviceTransform();
    m_isMirrored = toDevice.xx * toDevice.yy < toDevice.xy * toDevice.yx;
    if (!m_isMirrored)
        return;
    m_painter.saveState();
    m_painter.translate(middle * 2, 0);
    m_painter.scale(-1, 1);
}

UXUnmirroredSpace::~UXUnmirroredSpace()
{
    if (m_isMirrored)
        m_painter.restoreState();
}
