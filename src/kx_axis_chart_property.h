#pragma once

#include "kx_assistant_line_property.h"
#include "kx_axis_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_hint_info.h"

#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_AXIS_CHART_PROPERTY_KEYS(KEY)                                                                \
    KEY(KXAxisChartOrientation, Orientation, m_orientation, KXAxisChartOrientation::Vertical,           \
        All(Orientation), Layout, "where the values run")                                               \
    KEY(KXChartDataDensity, DataDensity, m_dataDensity, KXChartDataDensity::Medium, All(DataDensity),   \
        Layout, "how close the categories stand")                                                       \
    KEY(bool, EnableScroll, m_enableScroll, true, All(DataDensity), Layout,                             \
        "off: all categories at once, however narrow")                                                  \
    KEY(bool, ShowZeroLine, m_showZeroLine, true, Any(GridLine), Layout,                                \
        "a line where a value axis runs through zero")                                                  \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}, Any(ColorSeries), Recolor,              \
        "colours that the series take in turn; empty: those of the chart")                              \
    KEY(double, DimmedOpacity, m_dimmedOpacity, 0.3, Any(Highlight), Repaint,                           \
        "opacity of what is beside a highlight, 0 to 1")                                                \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Hint), None, "how hints look")          \
    KEY(double, VisibleXFrom, m_visibleXFrom, 0, All(AxisRange), Layout,                                \
        "where what is shown of a continuous X axis begins, in its values")                             \
    KEY(double, VisibleXTo, m_visibleXTo, 0, All(AxisRange), Layout,                                    \
        "where it ends; not above its beginning: all is shown")                                         \
    KEY(double, VisibleYFrom, m_visibleYFrom, 0, All(AxisRange), Layout,                                \
        "where what is shown of the first value axis begins, in its values")                            \
    KEY(double, VisibleYTo, m_visibleYTo, 0, All(AxisRange), Layout,                                    \
        "where it ends; not above its beginning: all is shown")                                         \
    KEY(bool, EnableZoom, m_enableZoom, true, All(AxisRange), Layout,                                   \
        "the user can show a part of a continuous axis")                                                \
    KEY(bool, FitValuesToVisible, m_fitValuesToVisible, false, All(AxisRange), Reload,                  \
        "automatic ranges of values follow the part that is shown")                                     \
    KEY(bool, IsXLogarithmic, m_isXLogarithmic, false, All(AxisRange), Reload,                          \
        "an X axis of numbers counts powers of ten")                                                    \
    KEY(bool, IsYLogarithmic, m_isYLogarithmic, false, All(AxisRange), Reload,                          \
        "the first value axis does, unless it is stacked; values that are not above zero are gaps")     \
    KEY(bool, IsSecondaryYLogarithmic, m_isSecondaryYLogarithmic, false, All(AxisRange), Reload,        \
        "the second value axis does")                                                                   \
    KEY(bool, IsYReversed, m_isYReversed, false, All(AxisRange), Layout,                                \
        "values grow downwards, or to the left")                                                        \
    KEY(bool, AlignValueAxes, m_alignValueAxes, true, All(AxisRange), Layout,                           \
        "two automatic value axes share one grid, and zero where both hold it")                         \
    KEY(std::vector<KXAssistantLineProperty>, AssistantLines, m_assistantLines, {}, Any(AssistantLine), \
        Reload, "lines of reference")

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
