#include "kx_no_data_label.h"

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
