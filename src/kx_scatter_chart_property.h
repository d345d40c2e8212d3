#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_line_chart_options.h"
#include "kx_scatter_chart_options.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_SCATTER_CHART_PROPERTY_KEYS(KEY)                                                                  \
    KEY(double, PointSize, m_pointSize, 8, Any(Scatter), Layout,                                             \
        "width of a point in logical units, where no measure gives sizes")                                   \
    KEY(double, MinPointSize, m_minPointSize, 4, Any(Scatter), Layout,                                       \
        "width of the smallest points, and of those without a size, where a measure gives sizes")            \
    KEY(double, MaxPointSize, m_maxPointSize, 40, Any(Scatter), Layout,                                      \
        "width of the point of the greatest size, at most a tenth of the chart; the area of the others is "  \
        "in "                                                                                                \
        "proportion")                                                                                        \
    KEY(KXPointShape, PointShape, m_pointShape, KXPointShape::Circle, Any(Scatter), Repaint,                 \
        "what points look like")                                                                             \
    KEY(std::vector<KXPointShape>, SeriesShapes, m_seriesShapes, {}, Any(Scatter), Repaint,                  \
        "points that the series take in turn; empty: m_pointShape")                                          \
    KEY(double, Opacity, m_opacity, -1, Any(Scatter), Recolor,                                               \
        "of points, 0 to 1; -1: falls with crowding, down to 0.25")                                          \
    KEY(bool, ColorByValue, m_colorByValue, true, Any(ColorSeries), Reload,                                  \
        "points have colours by the measure that there is for that")                                         \
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
    KEY(bool, ShowLabels, m_showLabels, false, All(DataLabel), Layout, "texts at the points")                \
    KEY(KXLineLabelPosition, LabelPosition, m_labelPosition, KXLineLabelPosition::Top, Any(DataLabel),       \
        Layout, "the side of a point on which its text stands, if there is room")                            \
    KEY(KXScatterLabelContent, LabelContent, m_labelContent, KXScatterLabelContent::Name, All(DataLabel),    \
        Layout, "what the text of a point says")                                                             \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeDefaultLabelProperty(), Any(DataLabel), Layout, \
        "font and colour of the texts")

/** What the user can set about points, whose places, sizes and colours are values. */
class KX_EXPORT KXScatterChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXScatterChartProperty, KXChartPropertyBase, KX_SCATTER_CHART_PROPERTY_KEYS)
public:
    KXScatterChartProperty();
    KXScatterChartProperty(const KXScatterChartProperty&);
    KXScatterChartProperty& operator=(const KXScatterChartProperty&);
    ~KXScatterChartProperty() override;

    KXPointShape obtainPointShape(std::uint64_t series) const;

private:
    static UXTextProperty _makeDefaultLabelProperty();
};
