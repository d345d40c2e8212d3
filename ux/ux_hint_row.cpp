#include "ux/ux_hint_row.h"

#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

UXHintRow::UXHintRow() = default;

UXHintRow::~UXHintRow() = default;

void UXHintRow::setLine(const UXHintLine& line)
{
    UXHintLine moved = m_line;
    moved.rect = line.rect;
    const bool looksTheSame = moved == line;
    m_line = line;
    const UXObjectWatcher watcher(this);
    setRect(line.rect);
    if (watcher.isAlive() && !looksTheSame)
        invalidate();
}

std::string UXHintRow::customSerializeTypeID() { return "UXHintRow"; }

void UXHintRow::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        drawLine(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void UXHintRow::drawLine(UXPainter& painter)
{
    if (!uxIsEmptyRect(m_line.labelRect))
        painter.drawText(m_line.content.label, UXDoubleRect(m_line.labelRect), m_line.content.labelProperty);
}
