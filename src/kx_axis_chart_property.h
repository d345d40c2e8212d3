#pragma once

#include "kx_axis_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_hint_info.h"

#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_AXIS_CHART_PROPERTY_KEYS(KEY)                                                              \
    KEY(KXAxisChartOrientation, Orientation, m_orientation, KXAxisChartOrientation::Vertical,         \
        All(Orientation), Layout, "where the values run")                                             \
    KEY(KXChartDataDensity, DataDensity, m_dataDensity, KXChartDataDensity::Medium, All(DataDensity), \
        Layout, "how close the categories stand")                                                     \
    KEY(bool, EnableScroll, m_enableScroll, true, All(DataDensity), Layout,                           \
        "off: all categories at once, however narrow")                                                \
    KEY(bool, ShowZeroLine, m_showZeroLine, true, Any(GridLine), Layout,                              \
        "a line where a value axis runs through zero")                                                \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}, Any(ColorSeries), Recolor,            \
        "colours that the series take in turn; empty: those of the chart")                            \
    KEY(double, DimmedOpacity, m_dimmedOpacity, 0.3, Any(Highlight), Repaint,                         \
        "opacity of what is beside a highlight, 0 to 1")                                              \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Hint), None, "how hints look")

/** What the user can set about an axis chart beside its axes, whatever its marks are. Each axis chart owns
 * one beside the property object of its type. */
class KX_EXPORT KXAxisChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXAxisChartProperty, KXChartPropertyBase, KX_AXIS_CHART_PROPERTY_KEYS)
public:
    KXAxisChartProperty();
    KXAxisChartProperty(const KXAxisChartProperty&);
    KXAxisChartProperty& operator=(const KXAxisChartProperty&);
    ~KXAxisChartProperty() override;
};
