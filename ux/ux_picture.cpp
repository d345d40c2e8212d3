#include "ux/ux_picture.h"

#include <utility>

void UXPicture::registerPaintAction(UXPaintFunction action, const UXDoubleSize& size)
{
    m_action = std::move(action);
    m_size = size;
}

void UXPicture::paint(UXPainter* painter) const
{
    if (painter && m_action)
        m_action(painter);
}
