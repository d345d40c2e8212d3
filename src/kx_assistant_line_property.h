#pragma once

#include "kx_assistant_line_options.h"
#include "kx_chart_options.h"
#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_key_type.h"
#include "kx_line_chart_options.h"
#include "ux/ux_color.h"
#include "ux/ux_text_property.h"

#include <string>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_ASSISTANT_LINE_PROPERTY_KEYS(KEY)                                                                \
    KEY(bool, IsOnXAxis, m_isOnXAxis, false, Any(AssistantLine), Reload,                                    \
        "the line stands across the X axis, at a value of it")                                              \
    KEY(bool, IsOnSecondaryAxis, m_isOnSecondaryAxis, false, Any(AssistantLine), Reload,                    \
        "its values are those of the second value axis")                                                    \
    KEY(int, Operation, m_operation, 0, Any(AssistantLine), Reload,                                         \
        "what it tells: 0 fixed value, 1 minimum, 2 maximum, 3 average, 4 median, 5 share of the sum, "     \
        "6 percentile, 7 standard deviation, 8 trend, 9 moving average")                                    \
    KEY(double, Value, m_value, 0, Any(AssistantLine), Reload,                                              \
        "the fixed value, the percent of share or percentile, how many deviations, or of how many places")  \
    KEY(bool, IsBand, m_isBand, false, Any(AssistantLine), Reload, "a band up to a second value")           \
    KEY(int, ToOperation, m_toOperation, 0, Any(AssistantLine), Reload, "what the second value is")         \
    KEY(double, ToValue, m_toValue, 0, Any(AssistantLine), Reload, "the same as m_value")                   \
    KEY(std::string, Category, m_category, std::string(), Any(AssistantLine), Reload,                       \
        "the member at which the line stands on an X axis of slots, by its text; empty: m_value counts "    \
        "them from 0")                                                                                      \
    KEY(std::string, SeriesID, m_seriesID, std::string(), Any(AssistantLine), Reload,                       \
        "the series whose values count; empty: all")                                                        \
    KEY(UXColor, Color, m_color, UXColor(96, 96, 104), Any(AssistantLine), Repaint, "of line and band")     \
    KEY(double, LineWidth, m_lineWidth, 1, Any(AssistantLine), Repaint, "in logical units")                 \
    KEY(KXChartLineStyle, LineStyle, m_lineStyle, KXChartLineStyle::Dash, Any(AssistantLine), Repaint,      \
        "how the line is dashed; None: not at all")                                                         \
    KEY(double, BandOpacity, m_bandOpacity, 0.12, Any(AssistantLine), Repaint, "0 to 1")                    \
    KEY(double, Confidence, m_confidence, 0.95, Any(AssistantLine), Reload,                                 \
        "of the band about a trend, 0 to 1; 0: no band")                                                    \
    KEY(std::string, LabelText, m_labelText, std::string(), Any(AssistantLine), Layout,                     \
        "what the line is called; empty: what it tells")                                                    \
    KEY(KXAssistantLineLabelContent, LabelContent, m_labelContent, KXAssistantLineLabelContent::Both,       \
        Any(AssistantLine), Layout, "what its label says")                                                  \
    KEY(KXAssistantLineLabelPosition, LabelPosition, m_labelPosition, KXAssistantLineLabelPosition::End,    \
        Any(AssistantLine), Layout, "where along the line the label stands, if there is room")              \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeDefaultLabelProperty(), Any(AssistantLine),    \
        Layout, "font and colour of the label")                                                             \
    KEY(bool, IsInFront, m_isInFront, true, Any(AssistantLine), Layout, "over the marks; off: behind them") \
    KEY(bool, ShowInLegend, m_showInLegend, false, Any(AssistantLine), Reload, "a cell of the legend")

/** A line of reference in an axis chart, or a band: at a value, or at what is worked out of the data. */
class KX_EXPORT KXAssistantLineProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXAssistantLineProperty, KXChartPropertyBase, KX_ASSISTANT_LINE_PROPERTY_KEYS)
public:
    KXAssistantLineProperty();
    KXAssistantLineProperty(const KXAssistantLineProperty&);
    KXAssistantLineProperty& operator=(const KXAssistantLineProperty&);
    ~KXAssistantLineProperty() override;

    /** @return FixedValue for a number that is none */
    KXChartValueOperation obtainOperation() const;
    KXChartValueOperation obtainToOperation() const;
    /** @return the text of the user, else the name of what the line tells */
    std::string obtainCaption() const;

    /** Whether all keys are the same. */
    KX_EXPORT friend bool operator==(const KXAssistantLineProperty& a, const KXAssistantLineProperty& b);

private:
    static UXTextProperty _makeDefaultLabelProperty();
};

/** Lines stand in lists, each an object of its own. */
template <>
struct KXKeyTypeOf<KXAssistantLineProperty> {
    KX_EXPORT static const UXPropertyType& obtain();
};
