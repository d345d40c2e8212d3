#pragma once

#include "kx_axis_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_hint_info.h"

#include <vector>

// type, name, member and JSON key, default
#define KX_AXIS_CHART_PROPERTY_KEYS(KEY)                                                                    \
    KEY(KXAxisChartOrientation, Orientation, m_orientation, KXAxisChartOrientation::Vertical)               \
    KEY(KXChartDataDensity, DataDensity, m_dataDensity, KXChartDataDensity::Medium)                         \
    KEY(bool, EnableScroll, m_enableScroll, true) /* off: all categories at once, however narrow */         \
    KEY(bool, ShowZeroLine, m_showZeroLine, true) /* where a value axis runs through zero */                \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}) /* empty: the chart's own */                \
    KEY(double, DimmedOpacity, m_dimmedOpacity, 0.3)            /* of what is beside a highlight, 0 to 1 */ \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo())     /* how hints look */

/** What the user can set about an axis chart beside its axes, whatever its marks are. Each axis chart owns
 * one beside the property object of its type. */
class KX_EXPORT KXAxisChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXAxisChartProperty, KXChartPropertyBase, KX_AXIS_CHART_PROPERTY_KEYS)
public:
    KXAxisChartProperty();
    KXAxisChartProperty(const KXAxisChartProperty&);
    KXAxisChartProperty& operator=(const KXAxisChartProperty&);
    ~KXAxisChartProperty() override;

    /** Knows the groups Orientation, DataDensity, ColorSeries, GridLine, Highlight and Hint. Only a reset of
     *  everything takes the first two, which say what the chart shows. */
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                               const KXKeys& groups) override;
};
