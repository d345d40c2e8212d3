#pragma once

#include "kx_axis_tick_label_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <string>

// type, name, member and JSON key, default
#define KX_AXIS_PROPERTY_SCALE_KEYS(KEY)                                                                  \
    KEY(bool, AutoAxisRange, m_autoAxisRange, true) /* from the data */                                   \
    KEY(double, CustomMinAxisValue, m_customMinAxisValue, 0)                                              \
    KEY(double, CustomMaxAxisValue, m_customMaxAxisValue, 0)                                              \
    KEY(bool, AutoAxisTicks, m_autoAxisTicks, true)                                                       \
    KEY(double, CustomAxisTickInterval, m_customAxisTickInterval, 0) /* above 0, in value units */        \
    KEY(double, CustomAxisTickIntervalFor100PercentStacked, m_customAxisTickIntervalFor100PercentStacked, \
        0)                                                      /* above 0, in percent */                 \
    KEY(int, AxisPossibleTickCount, m_axisPossibleTickCount, 5) /* wanted, of automatic ticks */          \
    KEY(std::string, AxisTickFormat, m_axisTickFormat, "%.10g") /* kept for the host */                   \
    KEY(bool, IsStacked, m_isStacked, false)                                                              \
    KEY(bool, Is100PercentStacked, m_is100PercentStacked, false) /* counts where m_isStacked does */      \
    KEY(bool, IsContinuous, m_isContinuous, false)               /* categories by value */                \
    KEY(bool, IsCustomizedIsContinuous, m_isCustomizedIsContinuous, false) /* set by the user */

#define KX_AXIS_PROPERTY_LOOK_KEYS(KEY)                                                                     \
    KEY(bool, ShowAxis, m_showAxis, true)                                                                   \
    KEY(bool, ShowGridLine, m_showGridLine, false)                                                          \
    KEY(UXColor, AxisColor, m_axisColor, UXColor())                                                         \
    KEY(UXColor, GridLineColor, m_gridLineColor, UXColor())                                                 \
    KEY(int, AxisLength, m_axisLength, -1) /* logical units, -1 as long as there is room */                 \
    KEY(bool, ShowTickLabels, m_showTickLabels, true)                                                       \
    KEY(UXTextProperty, TickLabelProperty, m_tickLabelProperty, _makeDefaultTextProperty(13))               \
    KEY(UXColor, AxisAndTickLabelColor, m_axisAndTickLabelColor, UXColor(120, 120, 120, 1.0))               \
    KEY(KXAxisTickLabelRotationType, TickLabelRotationType, m_tickLabelRotationType,                        \
        KXAxisTickLabelRotationType::Auto)                                                                  \
    KEY(KXAxisTickLabelIntervalMode, TickLabelIntervalMode, m_tickLabelIntervalMode,                        \
        KXAxisTickLabelIntervalMode::Auto)                                                                  \
    KEY(bool, UseFixedTickLabelIntervalForAutoIntervalMode, m_useFixedTickLabelIntervalForAutoIntervalMode, \
        true)                                                                                               \
    KEY(double, TickLabelInterval, m_tickLabelInterval, 10.0) /* every how many ticks, if Custom */         \
    KEY(std::string, TitleValue, m_titleValue, std::string())                                               \
    KEY(UXTextProperty, TitleProperty, m_titleProperty, _makeDefaultTextProperty(18))                       \
    KEY(bool, ShowTitle, m_showTitle, true)                                                                 \
    KEY(bool, ShowTitleAtEndOfAxis, m_showTitleAtEndOfAxis, false)                                          \
    KEY(UXColor, ScrollBarColor, m_scrollBarColor, UXColor(239, 239, 244, 1.0))                             \
    KEY(UXColor, ScrollBarSliderColor, m_scrollBarSliderColor, UXColor(209, 209, 214, 1.0))

/** What the document holds, in its order. */
#define KX_AXIS_PROPERTY_KEYS(KEY)   \
    KX_AXIS_PROPERTY_SCALE_KEYS(KEY) \
    KX_AXIS_PROPERTY_LOOK_KEYS(KEY)

/** The title that the chart proposes where the user gave none; it is found anew with the data. */
#define KX_AXIS_PROPERTY_UNWRITTEN_KEYS(KEY) \
    KEY(std::string, DefaultTitleValue, m_defaultTitleValue, std::string())

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

    /** Knows the groups AxisRange, AxisTick, Stack, Axis, GridLine, TickLabel, Title and ScrollBar. Only a
     *  reset of everything takes the first three, which say what the axis shows, and the title's text. */
    void customResetProperties(KXChartResetType type, KXChartPropertyBase* source,
                               const KXKeys& groups) override;

private:
    static UXTextProperty _makeDefaultTextProperty(int fontSize);
    void _resetScale(const KXAxisProperty* own, const KXKeys& groups, const ForcedUpdates& forced,
                     const UXJsonObjectWatcher& sourceWatcher);
    void _resetLook(const KXAxisProperty* own, const KXKeys& groups, const ForcedUpdates& forced,
                    const UXJsonObjectWatcher& sourceWatcher);
};
