#pragma once

#include "kx_axis_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_line_chart_options.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_LINE_CHART_PROPERTY_KEYS(KEY)                                                                     \
    KEY(double, LineWidth, m_lineWidth, 2, Any(Line), Layout, "in logical units; 0: points alone")           \
    KEY(KXChartLineStyle, LineStyle, m_lineStyle, KXChartLineStyle::None, Any(Line), Layout,                 \
        "how lines are dashed; None: not at all")                                                            \
    KEY(KXChartLineCapStyle, LineCapStyle, m_lineCapStyle, KXChartLineCapStyle::Round, Any(Line), Repaint,   \
        "how lines end")                                                                                     \
    KEY(KXChartLineJoinStyle, LineJoinStyle, m_lineJoinStyle, KXChartLineJoinStyle::Round, Any(Line),        \
        Repaint, "how the pieces of a line meet")                                                            \
    KEY(std::vector<KXChartLineStyle>, SeriesLineStyles, m_seriesLineStyles, {}, Any(Line), Layout,          \
        "dashes that the series take in turn; empty: m_lineStyle")                                           \
    KEY(std::vector<double>, SeriesLineWidths, m_seriesLineWidths, {}, Any(Line), Layout,                    \
        "widths that the series take in turn; empty: m_lineWidth")                                           \
    KEY(std::vector<KXPointShape>, SeriesShapes, m_seriesShapes, {}, Any(Line), Repaint,                     \
        "points that the series take in turn; empty: m_pointShape")                                          \
    KEY(KXLineCurve, Curve, m_curve, KXLineCurve::Straight, Any(Line), Layout,                               \
        "how a line runs from point to point")                                                               \
    KEY(KXLineNullHandling, NullHandling, m_nullHandling, KXLineNullHandling::Gap, All(Line), Layout,        \
        "what a line does without a value")                                                                  \
    KEY(KXLinePointDisplay, PointDisplay, m_pointDisplay, KXLinePointDisplay::Auto, Any(Line), Layout,       \
        "which points are drawn; Auto: up to 40 of a series, and those without neighbours")                  \
    KEY(double, PointSize, m_pointSize, 6, Any(Line), Layout, "width of a point in logical units")           \
    KEY(KXPointShape, PointShape, m_pointShape, KXPointShape::Circle, Any(Line), Repaint,                    \
        "what points look like")                                                                             \
    KEY(double, FillOpacity, m_fillOpacity, -1, Any(Line), Repaint,                                          \
        "of areas, 0 to 1; -1: 0.16, stacked 0.9")                                                           \
    KEY(bool, ColorByValue, m_colorByValue, false, Any(ColorSeries), Reload,                                 \
        "the colour runs along the line by its value")                                                       \
    KEY(UXColor, MinColor, m_minColor, UXColor(49, 104, 178), Any(ColorSeries), Recolor,                     \
        "of the least value")                                                                                \
    KEY(UXColor, MiddleColor, m_middleColor, UXColor(224, 184, 96), Any(ColorSeries), Recolor,               \
        "of the middle value")                                                                               \
    KEY(UXColor, MaxColor, m_maxColor, UXColor(196, 48, 43), Any(ColorSeries), Recolor,                      \
        "of the greatest value")                                                                             \
    KEY(double, MiddleValue, m_middleValue, 0, Any(ColorSeries), Recolor,                                    \
        "has the middle colour where it is in the range, else what is halfway")                              \
    KEY(int, ClassCount, m_classCount, 0, Any(ColorSeries), Recolor,                                         \
        "above 0: so many colours with sharp bounds")                                                        \
    KEY(UXColor, NegativeColor, m_negativeColor, UXColor(0, 0, 0, 0), Any(ColorSeries), Recolor,             \
        "of what lies below zero; clear: as above")                                                          \
    KEY(bool, ShowLabels, m_showLabels, false, All(DataLabel), Layout, "texts at the points")                \
    KEY(KXLineLabelPosition, LabelPosition, m_labelPosition, KXLineLabelPosition::Top, Any(DataLabel),       \
        Layout, "the side of a point on which its text stands, if there is room")                            \
    KEY(KXAxisChartLabelDisplayOption, LabelDisplayOption, m_labelDisplayOption,                             \
        KXAxisChartLabelDisplayOption::ValueOnly, All(DataLabel), Layout,                                    \
        "what the text of a point says; Title with LineEnds: the series' name at the end of its line")       \
    KEY(KXAxisChartValueOption, LabelValueOption, m_labelValueOption, KXAxisChartValueOption::All,           \
        All(DataLabel), Layout, "which points have texts")                                                   \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeDefaultLabelProperty(), Any(DataLabel), Layout, \
        "font and colour of the texts")                                                                      \
    KEY(std::vector<KXAxisChartType>, SeriesTypes, m_seriesTypes, {}, All(Line), Reload,                     \
        "how each measure is drawn beside bars; one that is missing or Unknown: as its values want it")      \
    KEY(double, BandOpacity, m_bandOpacity, 0.16, Any(Line), Repaint,                                        \
        "of the bands between which values are thought to lie, 0 to 1")

/** What the user can set about lines, areas and points, and about their labels. Whether they are stacked is a
 * matter of the value axis. */
class KX_EXPORT KXLineChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXLineChartProperty, KXChartPropertyBase, KX_LINE_CHART_PROPERTY_KEYS)
public:
    KXLineChartProperty();
    KXLineChartProperty(const KXLineChartProperty&);
    KXLineChartProperty& operator=(const KXLineChartProperty&);
    ~KXLineChartProperty() override;

    // What one series takes of the lists
    KXChartLineStyle obtainLineStyle(std::uint64_t series) const;
    /** @return at least 0, and not so large that a dash of it would be beyond a double */
    double obtainLineWidth(std::uint64_t series) const;
    KXPointShape obtainPointShape(std::uint64_t series) const;
    /** @return at least 0 */
    double obtainPointSize() const;

private:
    static UXTextProperty _makeDefaultLabelProperty();
};
