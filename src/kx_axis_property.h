#pragma once

#include "kx_axis_tick_label_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <string>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_AXIS_PROPERTY_SCALE_KEYS(KEY)                                                                     \
    KEY(bool, AutoAxisRange, m_autoAxisRange, true, All(AxisRange), Layout,                                  \
        "range of the axis from the data")                                                                   \
    KEY(double, CustomMinAxisValue, m_customMinAxisValue, 0, All(AxisRange), Layout,                         \
        "start of a range that is not automatic, in values")                                                 \
    KEY(double, CustomMaxAxisValue, m_customMaxAxisValue, 0, All(AxisRange), Layout,                         \
        "end of a range that is not automatic, in values")                                                   \
    KEY(bool, AutoAxisTicks, m_autoAxisTicks, true, All(AxisTick), Layout,                                   \
        "distance of the ticks from the range")                                                              \
    KEY(double, CustomAxisTickInterval, m_customAxisTickInterval, 0, All(AxisTick), Layout,                  \
        "distance of ticks that are not automatic, above 0, in values")                                      \
    KEY(double, CustomAxisTickIntervalFor100PercentStacked, m_customAxisTickIntervalFor100PercentStacked, 0, \
        All(AxisTick), Layout, "the same of an axis from 0 to 100 percent, above 0, in percent")             \
    KEY(int, AxisPossibleTickCount, m_axisPossibleTickCount, 5, All(AxisTick), Layout,                       \
        "how many automatic ticks are wanted")                                                               \
    KEY(std::string, AxisTickFormat, m_axisTickFormat, "%.10g", All(AxisTick), Layout, "kept for the host")  \
    KEY(bool, IsStacked, m_isStacked, false, All(Stack), Reload,                                             \
        "marks of one category stand on each other")                                                         \
    KEY(bool, Is100PercentStacked, m_is100PercentStacked, false, All(Stack), Reload,                         \
        "stacks fill the axis from 0 to 100 percent; counts where m_isStacked does")                         \
    KEY(bool, IsContinuous, m_isContinuous, false, All(AxisRange), Reload,                                   \
        "categories stand by their value")                                                                   \
    KEY(bool, IsCustomizedIsContinuous, m_isCustomizedIsContinuous, false, All(AxisRange), Reload,           \
        "m_isContinuous was set by the user")

#define KX_AXIS_PROPERTY_LOOK_KEYS(KEY)                                                                      \
    KEY(bool, ShowAxis, m_showAxis, true, Any(Axis), Layout, "the axis line")                                \
    KEY(bool, ShowGridLine, m_showGridLine, false, Any(GridLine), Layout, "grid lines at the ticks")         \
    KEY(UXColor, AxisColor, m_axisColor, UXColor(), Any(Axis), Recolor, "colour of the axis line")           \
    KEY(UXColor, GridLineColor, m_gridLineColor, UXColor(), Any(GridLine), Recolor,                          \
        "colour of the grid lines")                                                                          \
    KEY(int, AxisLength, m_axisLength, -1, Any(Axis), Layout, "logical units; -1: as long as there is room") \
    KEY(bool, ShowTickLabels, m_showTickLabels, true, Any(TickLabel), Layout, "texts at the ticks")          \
    KEY(UXTextProperty, TickLabelProperty, m_tickLabelProperty, _makeDefaultTextProperty(13),                \
        Any(TickLabel), Layout, "font and colour of the texts at the ticks")                                 \
    KEY(UXColor, AxisAndTickLabelColor, m_axisAndTickLabelColor, UXColor(120, 120, 120, 1.0), Any(Axis),     \
        Layout, "one colour for the axis line and the texts at the ticks")                                   \
    KEY(KXAxisTickLabelRotationType, TickLabelRotationType, m_tickLabelRotationType,                         \
        KXAxisTickLabelRotationType::Auto, Any(TickLabel), Layout, "how the texts at the ticks are turned")  \
    KEY(KXAxisTickLabelIntervalMode, TickLabelIntervalMode, m_tickLabelIntervalMode,                         \
        KXAxisTickLabelIntervalMode::Auto, Any(TickLabel), Layout, "which ticks have texts")                 \
    KEY(bool, UseFixedTickLabelIntervalForAutoIntervalMode, m_useFixedTickLabelIntervalForAutoIntervalMode,  \
        true, Any(TickLabel), Layout, "Auto keeps its interval while the axis scrolls")                      \
    KEY(double, TickLabelInterval, m_tickLabelInterval, 10.0, Any(TickLabel), Layout,                        \
        "every how many ticks there is a text, with Custom")                                                 \
    KEY(std::string, TitleValue, m_titleValue, std::string(), All(Title), Layout,                            \
        "text of the title; empty: what the data is called")                                                 \
    KEY(UXTextProperty, TitleProperty, m_titleProperty, _makeDefaultTextProperty(18), Any(Title), Layout,    \
        "font and colour of the title")                                                                      \
    KEY(bool, ShowTitle, m_showTitle, true, Any(Title), Layout, "the title")                                 \
    KEY(bool, ShowTitleAtEndOfAxis, m_showTitleAtEndOfAxis, false, Any(Title), Layout,                       \
        "the title at the end of the axis instead of along it")                                              \
    KEY(UXColor, ScrollBarColor, m_scrollBarColor, UXColor(239, 239, 244, 1.0), Any(ScrollBar), Recolor,     \
        "colour of the scroll bar")                                                                          \
    KEY(UXColor, ScrollBarSliderColor, m_scrollBarSliderColor, UXColor(209, 209, 214, 1.0), Any(ScrollBar),  \
        Recolor, "colour of what moves in the scroll bar")

/** What the document holds, in its order. */
#define KX_AXIS_PROPERTY_KEYS(KEY)   \
    KX_AXIS_PROPERTY_SCALE_KEYS(KEY) \
    KX_AXIS_PROPERTY_LOOK_KEYS(KEY)

/** The title that the chart proposes where the user gave none; it is found anew with the data. */
#define KX_AXIS_PROPERTY_UNWRITTEN_KEYS(KEY)                                               \
    KEY(std::string, DefaultTitleValue, m_defaultTitleValue, std::string(), Never, Layout, \
        "title that the chart proposes")

#define KX_AXIS_PROPERTY_ALL_KEYS(KEY) \
    KX_AXIS_PROPERTY_KEYS(KEY)         \
    KX_AXIS_PROPERTY_UNWRITTEN_KEYS(KEY)

/** What the user can set about one axis: its range and ticks, stacking, its line, grid lines, labels, title
 *  and scroll bar. */
class KX_EXPORT KXAxisProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXAxisProperty, KXChartPropertyBase, KX_AXIS_PROPERTY_ALL_KEYS)
public:
    KXAxisProperty();
    KXAxisProperty(const KXAxisProperty&);
    KXAxisProperty& operator=(const KXAxisProperty&);
    ~KXAxisProperty() override;

    // Part of m_tickLabelProperty: a change counts as one of m_tickLabelProperty
    virtual UXColor getTickLabelFontColor() const;
    virtual void updateTickLabelFontColor(const UXColor& value, const KXKeys& keys, bool exclude);
    virtual void updateTickLabelFontColor(const UXColor& value);

    /** @return whether the axis runs from 0 to 100 percent */
    bool obtainIs100PercentStacked() const { return m_isStacked && m_is100PercentStacked; }

private:
    static UXTextProperty _makeDefaultTextProperty(int fontSize);
};
