#include "kx_bar_chart_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXBarChartProperty, KXChartPropertyBase, KX_BAR_CHART_PROPERTY_KEYS)

KXBarChartProperty::KXBarChartProperty() = default;
KXBarChartProperty::KXBarChartProperty(const KXBarChartProperty&) = default;
KXBarChartProperty& KXBarChartProperty::operator=(const KXBarChartProperty&) = default;
KXBarChartProperty::~KXBarChartProperty() = default;

UXTextProperty KXBarChartProperty::_makeDefaultLabelProperty(bool bold)
{
    UXTextProperty property;
    property.font.size = 12;
    property.font.bold = bold;
    property.align = UXTextAlign::Center;
    property.textColor = UXColor(80, 80, 80);
    return property;
}

void KXBarChartProperty::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                               const KXKeys& groups)
{
    KXChartPropertyBase::customResetProperties(type, source, groups);
    const auto* own = dynamic_cast<KXBarChartProperty*>(source);
    if (!own)
        return;
    const ForcedUpdates forced(this);
    const UXJsonObjectWatcher sourceWatcher(source);
    const bool takesAll = type == KXChartResetType::All;
    if (groups.contains("Bar"))
        KX_TAKE_KEY(BarWidth);
    if (groups.contains("ColorSeries")) {
        KX_TAKE_KEY(ColorByItem);
        KX_TAKE_KEY(ItemColors);
    }
    if (groups.contains("DataLabel")) {
        KX_TAKE_KEY(LabelPosition);
        KX_TAKE_KEY(LabelOverflow);
        KX_TAKE_KEY(LabelProperty);
        KX_TAKE_KEY(AutoLabelColor);
    }
    if (takesAll && groups.contains("DataLabel")) {
        KX_TAKE_KEY(ShowLabels);
        KX_TAKE_KEY(LabelDisplayOption);
        KX_TAKE_KEY(LabelValueOption);
    }
    if (groups.contains("Total"))
        KX_TAKE_KEY(TotalProperty);
    if (takesAll && groups.contains("Total"))
        KX_TAKE_KEY(ShowTotals);
}
