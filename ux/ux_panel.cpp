#include "ux/ux_panel.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_ground.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

UXPanel::UXPanel() = default;

UXPanel::~UXPanel() = default;

std::string UXPanel::customSerializeTypeID() { return "UXPanel"; }

void UXPanel::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        uxDrawGround(*painter, *this, 0);
        uxDestroyPainter(painter);
    }
    const UXRect content = getContentRect();
    const UXRect visible = uxIntersectionRect(content, dirtyRect);
    if (!config || uxIsEmptyRect(visible))
        return;
    const UXPaintClip clip(*config, UXDoubleRect(translateRectToParent(content, nullptr)));
    UXObject::paint(config, visible);
}
