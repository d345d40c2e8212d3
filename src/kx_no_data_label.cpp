#include "kx_no_data_label.h"

#include "ux/ux_color_contrast.h"
#include "ux/ux_ground.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_text_property.h"

namespace {

constexpr UXColor textColor(120, 120, 120);
constexpr int fontSize = 13;

} // namespace

KXNoDataLabel::KXNoDataLabel()
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.align = UXTextAlign::Center;
    property.option = UXTextOption::EllipsisEnd;
    property.textColor = textColor;
    setTextProperty(property);
}

KXNoDataLabel::~KXNoDataLabel() = default;

void KXNoDataLabel::update(const UXRect& place, bool hasData)
{
    const UXObjectWatcher self(this);
    const std::string text = uxLocalizeString("No data");
    if (!self.isAlive())
        return;
    setText(text);
    setRect(place);
    autoResize();
    setVisible(!hasData && getRect().height <= place.height);
    setRect(place);
}

void KXNoDataLabel::drawLabel(UXPainter& painter, const UXDoubleRect& textRect,
                              const UXTextProperty& property)
{
    UXTextProperty drawn = property;
    const UXColor ground = uxObtainGroundColor(*this);
    if (ground != UXColor(255, 255, 255)) // for which its colour is made
        drawn.textColor = uxMakeReadableColor(property.textColor, ground);
    UXLabel::drawLabel(painter, textRect, drawn);
}
