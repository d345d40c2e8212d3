#pragma once

#include "kx_axis_chart_options.h"
#include "kx_bar_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <vector>

// type, name, member and JSON key, default
#define KX_BAR_CHART_PROPERTY_KEYS(KEY)                                                                    \
    KEY(double, BarWidth, m_barWidth, 0)         /* share of a category's room, 0 as the density wants */  \
    KEY(bool, ColorByItem, m_colorByItem, false) /* each category in a colour of its own */                \
    KEY(std::vector<UXColor>, ItemColors, m_itemColors, {}) /* in turn; empty: the chart's own */          \
    KEY(bool, ShowLabels, m_showLabels, false)                                                             \
    KEY(KXBarLabelPosition, LabelPosition, m_labelPosition, KXBarLabelPosition::Outside)                   \
    KEY(KXBarLabelOverflow, LabelOverflow, m_labelOverflow, KXBarLabelOverflow::Hidden)                    \
    KEY(KXAxisChartLabelDisplayOption, LabelDisplayOption, m_labelDisplayOption,                           \
        KXAxisChartLabelDisplayOption::ValueOnly)                                                          \
    KEY(KXAxisChartValueOption, LabelValueOption, m_labelValueOption, KXAxisChartValueOption::All)         \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeDefaultLabelProperty(false))                  \
    KEY(bool, AutoLabelColor, m_autoLabelColor, true) /* readable on the bar instead of the label's own */ \
    KEY(bool, ShowTotals, m_showTotals, false)        /* beyond each stack */                              \
    KEY(UXTextProperty, TotalProperty, m_totalProperty, _makeDefaultLabelProperty(true))

/** What the user can set about bars, their colours and their labels. How they stand together, side by side or
 * stacked, is a matter of the value axis. */
class KX_EXPORT KXBarChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXBarChartProperty, KXChartPropertyBase, KX_BAR_CHART_PROPERTY_KEYS)
public:
    KXBarChartProperty();
    KXBarChartProperty(const KXBarChartProperty&);
    KXBarChartProperty& operator=(const KXBarChartProperty&);
    ~KXBarChartProperty() override;

    /** Knows the groups Bar, ColorSeries, DataLabel and Total. Only a reset of everything takes which values
     * have labels and what these say. */
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                               const KXKeys& groups) override;

private:
    static UXTextProperty _makeDefaultLabelProperty(bool bold);
};
