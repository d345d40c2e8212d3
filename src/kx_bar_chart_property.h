#pragma once

#include "kx_axis_chart_options.h"
#include "kx_bar_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_BAR_CHART_PROPERTY_KEYS(KEY)                                                                      \
    KEY(double, BarWidth, m_barWidth, 0, Any(Bar), Layout,                                                   \
        "share of a category's room, 0 to 1; 0: as the density wants")                                       \
    KEY(bool, ColorByItem, m_colorByItem, false, Any(ColorSeries), Recolor,                                  \
        "each category has a colour of its own")                                                             \
    KEY(std::vector<UXColor>, ItemColors, m_itemColors, {}, Any(ColorSeries), Recolor,                       \
        "colours that categories take in turn; empty: those of the chart")                                   \
    KEY(bool, ShowLabels, m_showLabels, false, All(DataLabel), Layout, "texts at the bars")                  \
    KEY(KXBarLabelPosition, LabelPosition, m_labelPosition, KXBarLabelPosition::Outside, Any(DataLabel),     \
        Layout, "where the text of a bar stands")                                                            \
    KEY(KXBarLabelOverflow, LabelOverflow, m_labelOverflow, KXBarLabelOverflow::Hidden, Any(DataLabel),      \
        Layout, "what happens to a text that its bar cannot hold")                                           \
    KEY(KXAxisChartLabelDisplayOption, LabelDisplayOption, m_labelDisplayOption,                             \
        KXAxisChartLabelDisplayOption::ValueOnly, All(DataLabel), Layout, "what the text of a bar says")     \
    KEY(KXAxisChartValueOption, LabelValueOption, m_labelValueOption, KXAxisChartValueOption::All,           \
        All(DataLabel), Layout, "which bars have texts")                                                     \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeDefaultLabelProperty(false), Any(DataLabel),    \
        Layout, "font and colour of the texts")                                                              \
    KEY(bool, AutoLabelColor, m_autoLabelColor, true, Any(DataLabel), Layout,                                \
        "texts readable on their bar instead of in their own colour")                                        \
    KEY(bool, ShowTotals, m_showTotals, false, All(Total), Layout, "sums beyond the stacks")                 \
    KEY(UXTextProperty, TotalProperty, m_totalProperty, _makeDefaultLabelProperty(true), Any(Total), Layout, \
        "font and colour of the sums")

/** What the user can set about bars, their colours and their labels. How they stand together, side by side or
 * stacked, is a matter of the value axis. */
class KX_EXPORT KXBarChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXBarChartProperty, KXChartPropertyBase, KX_BAR_CHART_PROPERTY_KEYS)
public:
    KXBarChartProperty();
    KXBarChartProperty(const KXBarChartProperty&);
    KXBarChartProperty& operator=(const KXBarChartProperty&);
    ~KXBarChartProperty() override;

private:
    static UXTextProperty _makeDefaultLabelProperty(bool bold);
};
