#include "kx_axis_chart_property.h"

#include "kx_key_definitions.h"

KX_DEFINE_KEYS(KXAxisChartProperty, KXChartPropertyBase, KX_AXIS_CHART_PROPERTY_KEYS)

KXAxisChartProperty::KXAxisChartProperty() = default;
KXAxisChartProperty::KXAxisChartProperty(const KXAxisChartProperty&) = default;
KXAxisChartProperty& KXAxisChartProperty::operator=(const KXAxisChartProperty&) = default;
KXAxisChartProperty::~KXAxisChartProperty() = default;

void KXAxisChartProperty::customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                                                const KXKeys& groups)
{
    KXChartPropertyBase::customResetProperties(type, source, groups);
    const auto* own = dynamic_cast<KXAxisChartProperty*>(source);
    if (!own)
        return;
    const ForcedUpdates forced(this);
    const UXJsonObjectWatcher sourceWatcher(source);
    const bool takesAll = type == KXChartResetType::All;
    if (takesAll && groups.contains("Orientation"))
        KX_TAKE_KEY(Orientation);
    if (takesAll && groups.contains("DataDensity")) {
        KX_TAKE_KEY(DataDensity);
        KX_TAKE_KEY(EnableScroll);
    }
    if (groups.contains("GridLine"))
        KX_TAKE_KEY(ShowZeroLine);
    if (groups.contains("ColorSeries"))
        KX_TAKE_KEY(SeriesColors);
    if (groups.contains("Highlight"))
        KX_TAKE_KEY(DimmedOpacity);
    if (groups.contains("Hint"))
        KX_TAKE_KEY(HintSettings);
}
