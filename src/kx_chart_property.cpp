#include "kx_chart_property.h"

#include "kx_key_definitions.h"

namespace {

constexpr int lineModeWrap = 1;
constexpr int lineModeNoWrap = 2;

} // namespace

KX_DEFINE_KEY_LISTS(KXChartProperty, KXChartPropertyBase, KX_CHART_PROPERTY_KEYS, KX_CHART_PROPERTY_ALL_KEYS)

KXChartProperty::KXChartProperty() = default;
KXChartProperty::KXChartProperty(const KXChartProperty&) = default;
KXChartProperty& KXChartProperty::operator=(const KXChartProperty&) = default;
KXChartProperty::~KXChartProperty() = default;

void KXChartProperty::updateTitlePropertyWithoutColor(const UXTextProperty& value, const KXKeys& keys,
                                                      bool exclude)
{
    if (_shouldUpdate("m_titleProperty", keys, exclude))
        updateTitlePropertyWithoutColor(value);
}

void KXChartProperty::updateTitlePropertyWithoutColor(const UXTextProperty& value)
{
    UXTextProperty changed = value;
    changed.textColor = m_titleProperty.textColor;
    updateTitleProperty(changed);
}

void KXChartProperty::updateTitleColor(const UXColor& value, const KXKeys& keys, bool exclude)
{
    if (_shouldUpdate("m_titleProperty", keys, exclude))
        updateTitleColor(value);
}

void KXChartProperty::updateTitleColor(const UXColor& value)
{
    UXTextProperty changed = m_titleProperty;
    changed.textColor = value;
    updateTitleProperty(changed);
}

bool KXChartProperty::getTitleValueWrap() const { return m_titleProperty.lineMode == lineModeWrap; }

void KXChartProperty::updateTitleValueWrap(bool wrap)
{
    UXTextProperty changed = m_titleProperty;
    changed.lineMode = wrap ? lineModeWrap : lineModeNoWrap;
    updateTitlePropertyWithoutColor(changed);
}

void KXChartProperty::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                            const KXKeys& groups)
{
    KXChartPropertyBase::customResetProperties(type, source, groups);
    const auto* own = dynamic_cast<KXChartProperty*>(source);
    if (!own)
        return;
    const ForcedUpdates forced(this);
    const UXJsonObjectWatcher sourceWatcher(source);
    const bool takesAll = type == KXChartResetType::All;

    if (groups.contains("Background")) {
        KX_TAKE_KEY(BackgroundColor);
    }
    if (groups.contains("Border")) {
        KX_TAKE_KEY(ShowBorder);
        KX_TAKE_KEY(BorderColor);
    }
    if (groups.contains("Title")) {
        KX_TAKE_KEY(ShowTitle);
        if (takesAll)
            KX_TAKE_KEY(TitleValue);
        KX_TAKE_KEY(TitleProperty);
        KX_TAKE_KEY(TitlePosition);
        KX_TAKE_KEY(TitleHorizontalAlign);
        KX_TAKE_KEY(TitleVerticalAlign);
        KX_TAKE_KEY(EnableTitleClick);
    }
    if (groups.contains("Legend")) {
        KX_TAKE_KEY(ShowLegend);
        KX_TAKE_KEY(LegendPosition);
        KX_TAKE_KEY(LegendHorizontalAlign);
        KX_TAKE_KEY(LegendVerticalAlign);
        KX_TAKE_KEY(LegendLabelColor);
    }
    if (groups.contains("ColorSeries")) {
        KX_TAKE_KEY(DefaultColor);
    }
    if (!takesAll)
        return;
    if (groups.contains("TopX")) {
        KX_TAKE_KEY(ShowOnlyTopX);
        KX_TAKE_KEY(TopXItemsToShow);
    }
    KX_TAKE_KEY(EnableInteraction);
}

UXTextProperty KXChartProperty::_makeDefaultTitleProperty()
{
    UXTextProperty property;
    property.font.familyName = "Default";
    property.font.size = 18;
    property.textColor = UXColor(16, 16, 16, 1.0);
    property.lineMode = lineModeNoWrap;
    return property;
}
