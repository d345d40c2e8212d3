#include "kx_chart_property.h"

#include "kx_key_definitions.h"

namespace {

constexpr int lineModeWrap = 1;
constexpr int lineModeNoWrap = 2;

} // namespace

KX_DEFINE_KEY_LISTS(KXChartProperty, KXChartPropertyBase, KX_CHART_PROPERTY_ALL_KEYS, 1)

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

/** Group by group, in an order of their own. */
void KXChartProperty::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                            const KXKeys& groups)
{
    const ForcedUpdates forced(this);
    const UXJsonObjectWatcher sourceWatcher(source);
    KXChartPropertyBase::customResetProperties(type, source, groups);
    for (const std::string group : {"Background", "Border", "Title", "Legend", "ColorSeries", "TopX", ""}) {
        const bool isTaken = group.empty() || groups.contains(group);
        if (isTaken && forced.isAlive() && sourceWatcher.isAlive())
            obtainPropertyTable().reset(*source, *this, {group}, type == KXChartResetType::All);
    }
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
