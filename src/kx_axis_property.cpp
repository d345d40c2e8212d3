#include "kx_axis_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEY_LISTS(KXAxisProperty, KXChartPropertyBase, KX_AXIS_PROPERTY_ALL_KEYS, 1)
KX_DEFINE_KEY_RESET(KXAxisProperty, KXChartPropertyBase)

KXAxisProperty::KXAxisProperty() = default;
KXAxisProperty::KXAxisProperty(const KXAxisProperty&) = default;
KXAxisProperty& KXAxisProperty::operator=(const KXAxisProperty&) = default;
KXAxisProperty::~KXAxisProperty() = default;

UXColor KXAxisProperty::getTickLabelFontColor() const { return m_tickLabelProperty.textColor; }

void KXAxisProperty::updateTickLabelFontColor(const UXColor& value, const KXKeys& keys, bool exclude)
{
    if (_shouldUpdate("m_tickLabelProperty", keys, exclude))
        updateTickLabelFontColor(value);
}

void KXAxisProperty::updateTickLabelFontColor(const UXColor& value)
{
    UXTextProperty changed = m_tickLabelProperty;
    changed.textColor = value;
    updateTickLabelProperty(changed);
}

UXTextProperty KXAxisProperty::_makeDefaultTextProperty(int fontSize)
{
    UXTextProperty property;
    property.font.familyName = "Default";
    property.font.size = fontSize;
    property.align = UXTextAlign::Center;
    property.lineMode = 2;
    property.textColor = UXColor(120, 120, 120, 1.0);
    return property;
}
