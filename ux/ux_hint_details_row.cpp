#include "ux/ux_hint_details_row.h"

#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_symbol_shape.h"

UXHintDetailsRow::UXHintDetailsRow() = default;

UXHintDetailsRow::~UXHintDetailsRow() = default;

std::string UXHintDetailsRow::customSerializeTypeID() { return "UXHintDetailsRow"; }

void UXHintDetailsRow::drawLine(UXPainter& painter)
{
    const UXHintLine& line = getLine();
    if (!uxIsEmptyRect(line.symbolRect))
        uxDrawSymbol(painter, line.content.symbolStyle, UXDoubleRect(line.symbolRect), line.content.color);
    UXHintRow::drawLine(painter);
    if (!uxIsEmptyRect(line.valueRect))
        painter.drawText(line.content.value, UXDoubleRect(line.valueRect), line.content.valueProperty);
}
