#include "kx_axis_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEY_LISTS(KXAxisProperty, KXChartPropertyBase, KX_AXIS_PROPERTY_KEYS, KX_AXIS_PROPERTY_ALL_KEYS)

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

void KXAxisProperty::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                           const KXKeys& groups)
{
    KXChartPropertyBase::customResetProperties(type, source, groups);
    const auto* own = dynamic_cast<KXAxisProperty*>(source);
    if (!own)
        return;
    const ForcedUpdates forced(this);
    const UXJsonObjectWatcher sourceWatcher(source);
    if (type == KXChartResetType::All)
        _resetScale(own, groups, forced, sourceWatcher);
    _resetLook(own, groups, forced, sourceWatcher);
    if (type == KXChartResetType::All && groups.contains("Title"))
        KX_TAKE_KEY(TitleValue);
}

void KXAxisProperty::_resetScale(const KXAxisProperty* own, const KXKeys& groups, const ForcedUpdates& forced,
                                 const UXJsonObjectWatcher& sourceWatcher)
{
    if (groups.contains("AxisRange")) {
        KX_TAKE_KEY(AutoAxisRange);
        KX_TAKE_KEY(CustomMinAxisValue);
        KX_TAKE_KEY(CustomMaxAxisValue);
        KX_TAKE_KEY(IsContinuous);
        KX_TAKE_KEY(IsCustomizedIsContinuous);
    }
    if (groups.contains("AxisTick")) {
        KX_TAKE_KEY(AutoAxisTicks);
        KX_TAKE_KEY(CustomAxisTickInterval);
        KX_TAKE_KEY(CustomAxisTickIntervalFor100PercentStacked);
        KX_TAKE_KEY(AxisPossibleTickCount);
        KX_TAKE_KEY(AxisTickFormat);
    }
    if (groups.contains("Stack")) {
        KX_TAKE_KEY(IsStacked);
        KX_TAKE_KEY(Is100PercentStacked);
    }
}

void KXAxisProperty::_resetLook(const KXAxisProperty* own, const KXKeys& groups, const ForcedUpdates& forced,
                                const UXJsonObjectWatcher& sourceWatcher)
{
    if (groups.contains("Axis")) {
        KX_TAKE_KEY(ShowAxis);
        KX_TAKE_KEY(AxisColor);
        KX_TAKE_KEY(AxisLength);
        KX_TAKE_KEY(AxisAndTickLabelColor);
    }
    if (groups.contains("GridLine")) {
        KX_TAKE_KEY(ShowGridLine);
        KX_TAKE_KEY(GridLineColor);
    }
    if (groups.contains("TickLabel")) {
        KX_TAKE_KEY(ShowTickLabels);
        KX_TAKE_KEY(TickLabelProperty);
        KX_TAKE_KEY(TickLabelRotationType);
        KX_TAKE_KEY(TickLabelIntervalMode);
        KX_TAKE_KEY(UseFixedTickLabelIntervalForAutoIntervalMode);
        KX_TAKE_KEY(TickLabelInterval);
    }
    if (groups.contains("Title")) {
        KX_TAKE_KEY(TitleProperty);
        KX_TAKE_KEY(ShowTitle);
        KX_TAKE_KEY(ShowTitleAtEndOfAxis);
    }
    if (groups.contains("ScrollBar")) {
        KX_TAKE_KEY(ScrollBarColor);
        KX_TAKE_KEY(ScrollBarSliderColor);
    }
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
