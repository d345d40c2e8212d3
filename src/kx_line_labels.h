#pragma once

#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "kx_label_placer.h"
#include "kx_line_chart_options.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_text_property.h"

#include <functional>
#include <string>
#include <vector>

/** A text that has found a place beside its point. */
struct KXLineLabel {
    KXAxisChartMark mark;
    std::string text;
    UXDoubleRect rect; /**< in the plot's space */
    UXTextProperty property;
    bool isOverLine = false; /**< a line runs through it */
};

/**
 * Says what the labels of points request, and has them placed: extremes have the first choice. A label stands
 * on the side of its point that the user wants, or else on the one where there is room. Names stand beyond
 * the ends of their lines, moved apart where these meet.
 */
class KX_EXPORT KXLineLabelPlacer {
public:
    /** Between a point and its label, in logical units. */
    static constexpr double gap = 3;

    /** @param isOverLine whether a line runs through a place, which is then the last to be taken */
    KXLineLabelPlacer(const KXAxisChartPlotFrame& frame, KXLineLabelPosition position, double pointSize,
                      std::function<bool(const UXDoubleRect&)> isOverLine);
    ~KXLineLabelPlacer();

    void addObstacle(const UXDoublePoint& point);
    void addObstacle(const UXDoubleRect& rect);
    /** Whether a point is one of those whose labels stay also where most have no room. */
    enum class Extreme : int { None, Least, Greatest };
    /** The label of the least value stands below it where the user wants labels above, off the line. */
    void add(const KXAxisChartMark& mark, const UXDoublePoint& point, const std::string& text,
             const UXTextProperty& property, Extreme extreme);
    /** Adds the name of the line that ends at point. */
    void addName(const KXAxisChartMark& mark, const UXDoublePoint& point, const std::string& text,
                 const UXTextProperty& property);

    /** @return those that have a place */
    std::vector<KXLineLabel> place();
    /** @return the texts of the others */
    const KXTextLosses& getLosses() const { return m_placer.getLosses(); }

private:
    UXDoubleRect _makeRect(const UXDoublePoint& point, KXLineLabelPosition side,
                           const UXDoubleSize& size) const;
    void _placeNames(std::vector<KXLineLabel>& labels) const;

    KXAxisChartPlotFrame m_frame;
    KXLineLabelPosition m_position;
    double m_distance; // of a label from the centre of its point
    std::function<bool(const UXDoubleRect&)> m_isOverLine;
    KXLabelPlacer m_placer;
    std::vector<UXDoubleRect> m_taken; // by what is no point
    std::vector<KXLabelRequest> m_requests;
    std::vector<KXAxisChartMark> m_marks; // one a request
    std::vector<KXLineLabel> m_names;     // where they would like to be
};
