#pragma once

#include "kx_chart_data_action.h"
#include "kx_gauge_chart_data_user.h"
#include "kx_gauge_chart_options.h"
#include "kx_key_table.h"
#include "kx_panel_chart.h"
#include "kx_text_losses.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_property_accessor.h"
#include "ux/ux_text_property.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class KXGaugeLayout;
class UXLayoutHelper;
class UXPainter;
struct KXGaugeDial;
struct KXGaugeText;

// type, name, member and JSON key, default, reset, effect, meaning; the data format stands between the two
// lists
#define KX_GAUGE_CHART_KEYS_BEFORE_FORMAT(KEY)                                                               \
    KEY(bool, ShowPointer, m_showPointer, true, Any(Gauge), Layout, "a needle from the hub to the value")    \
    KEY(KXGaugeChartLabelDisplay, MainDisplay, m_mainDisplay, KXGaugeChartLabelDisplay::Actual, Any(Gauge),  \
        Layout, "what the text of the value says")                                                           \
    KEY(UXColor, FontColor, m_fontColor, UXColor(64, 64, 64), Any(Gauge), Recolor,                           \
        "colour of the text of the value")                                                                   \
    KEY(std::string, FontName, m_fontName, UXTextProperty().font.familyName, Any(Gauge), Layout,             \
        "font family of the text of the value")                                                              \
    KEY(int, FontSize, m_fontSize, 50, Any(Gauge), Layout,                                                   \
        "font size of the text of the value, in logical units; it shrinks until it fits")                    \
    KEY(KXGaugeChartLabelDisplay, TargetDisplay, m_targetDisplay, KXGaugeChartLabelDisplay::Actual,          \
        Any(Gauge), Layout, "what the text of the target says")                                              \
    KEY(UXColor, TargetFontColor, m_targetFontColor, UXColor(120, 120, 120), Any(Gauge), Recolor,            \
        "colour of the text of the target")                                                                  \
    KEY(int, TargetFontSize, m_targetFontSize, 21, Any(Gauge), Layout,                                       \
        "font size of the text of the target, in logical units")                                             \
    KEY(std::string, TargetFontName, m_targetFontName, UXTextProperty().font.familyName, Any(Gauge), Layout, \
        "font family of the text of the target")                                                             \
    KEY(std::string, TargetCaption, m_targetCaption, kxObtainGaugeTargetCaption(), Any(Gauge), Layout,       \
        "what stands before the target")                                                                     \
    KEY(KXGaugeChartLabelDisplay, MaxMinDisplay, m_maxMinDisplay, KXGaugeChartLabelDisplay::Actual,          \
        Any(Gauge), Layout, "what the texts of minimum and maximum say")                                     \
    KEY(UXColor, MaxMinFontColor, m_maxMinFontColor, UXColor(120, 120, 120), Any(Gauge), Recolor,            \
        "colour of the texts of minimum and maximum")                                                        \
    KEY(std::string, MaxMinFontName, m_maxMinFontName, UXTextProperty().font.familyName, Any(Gauge), Layout, \
        "font family of the texts of minimum and maximum")                                                   \
    KEY(int, MaxMinFontSize, m_maxMinFontSize, 18, Any(Gauge), Layout,                                       \
        "font size of the texts of minimum and maximum, in logical units")                                   \
    KEY(bool, CustomTargetValue, m_customTargetValue, false, Any(Gauge), Layout,                             \
        "m_targetValueCache instead of the target of the data")                                              \
    KEY(double, TargetValueCache, m_targetValueCache, 50, Any(Gauge), Layout, "target, in values")           \
    KEY(bool, CustomMaxValue, m_customMaxValue, false, Any(Gauge), Layout,                                   \
        "m_maxValueCache instead of the maximum of the data")                                                \
    KEY(double, MaxValueCache, m_maxValueCache, 100, Any(Gauge), Layout, "maximum, in values")               \
    KEY(bool, CustomMinValue, m_customMinValue, false, Any(Gauge), Layout,                                   \
        "m_minValueCache instead of the minimum of the data")                                                \
    KEY(double, MinValueCache, m_minValueCache, 0, Any(Gauge), Layout, "minimum, in values")

#define KX_GAUGE_CHART_KEYS_AFTER_FORMAT(KEY)                                                                \
    KEY(std::int64_t, PipePartition, m_pipePartition, 1, Any(Gauge), Layout,                                 \
        "how many parts the dial has; 1 to 8 count")                                                         \
    KEY(UXColor, PipeBackgroundColor, m_pipeBackgroundColor, UXColor(239, 239, 244), Any(Gauge), Recolor,    \
        "colour of the dial beyond the value")                                                               \
    KEY(UXColor, PipeTargetColor, m_pipeTargetColor, UXColor(135, 135, 135), Any(Gauge), Recolor,            \
        "colour of the tick at the target")                                                                  \
    KEY(UXColor, PointerColor, m_pointerColor, UXColor(131, 131, 131), Any(Gauge), Recolor,                  \
        "colour of the needle")                                                                              \
    KEY(KXGaugeChartPartitionStyle, PartitionStyle, m_partitionStyle,                                        \
        KXGaugeChartPartitionStyle::EvenlyDistributed, Any(Gauge), Layout, "how the dial is divided")        \
    KEY(UXColor, PipeValueMaxColor, m_pipeValueMaxColor, UXColor(255, 110, 110), Any(Gauge), Recolor,        \
        "colour of the last part")                                                                           \
    KEY(UXColor, PipeValueMiddleColor, m_pipeValueMiddleColor, UXColor(252, 209, 84), Any(Gauge), Recolor,   \
        "colour of the part in the middle")                                                                  \
    KEY(UXColor, PipeValueMinColor, m_pipeValueMinColor, UXColor(24, 200, 140), Any(Gauge), Recolor,         \
        "colour of the first part")                                                                          \
    KEY(bool, InitPartition, m_initPartition, false, Any(Gauge), Layout, "the two lists below were set")     \
    KEY(std::vector<double>, CustomPartitionSegment, m_customParititonSegment, std::vector<double>(8, 0.0),  \
        Any(Gauge), Layout,                                                                                  \
        "with Custom: the start, then where each part but the last ends, in percent of the range")           \
    KEY(std::vector<UXColor>, CustomPartitionColor, m_customPartitionColor,                                  \
        std::vector<UXColor>(8, UXColor(24, 200, 140)), Any(Gauge), Layout,                                  \
        "with Custom: a colour for each part")                                                               \
    KEY(KXGaugeChartLabelDisplay, PartitionLabelDisplay, m_partitionLabelDisplay,                            \
        KXGaugeChartLabelDisplay::None, Any(Gauge), Layout, "what the texts at the bounds of the parts say") \
    KEY(UXColor, PartitionLabelFontColor, m_partitionLabelFontColor, UXColor(120, 120, 120), Any(Gauge),     \
        Recolor, "colour of the texts at the bounds")                                                        \
    KEY(std::string, PartitionLabelFontName, m_partitionLabelFontName, UXTextProperty().font.familyName,     \
        Any(Gauge), Layout, "font family of the texts at the bounds")                                        \
    KEY(int, PartitionLabelFontSize, m_partitionLabelFontSize, 18, Any(Gauge), Layout,                       \
        "font size of the texts at the bounds, in logical units")                                            \
    KEY(double, PipeWithPercentage, m_pipeWithPercentage, 0.28, Any(Gauge), Layout,                          \
        "how thick the dial is, as a share of its radius, 0 to 1")                                           \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Gauge), None, "how hints look")

#define KX_GAUGE_CHART_KEYS(KEY)           \
    KX_GAUGE_CHART_KEYS_BEFORE_FORMAT(KEY) \
    KX_GAUGE_CHART_KEYS_AFTER_FORMAT(KEY)

/** @return the caption that a new gauge has, in the host's language */
KX_EXPORT std::string kxObtainGaugeTargetCaption();

/** Shows one value on a half-circle dial, between a minimum and a maximum and beside a target. */
class KX_EXPORT KXGaugeChart : public KXPanelChart,
                               public KXGaugeChartDataUser,
                               public UXPropertyAccessor,
                               public UXHintDelegate,
                               public KXChartDataAction {
    KX_DECLARE_CHART_KEYS(KX_GAUGE_CHART_KEYS)
public:
    KXGaugeChart();
    ~KXGaugeChart() override;

    // Properties
    /** Takes the partitions of the custom style.
     *  @param boundaries in percent of the range: the start, then where each partition but the last ends
     *  @param colors one a partition */
    void setCustomPartitionColor(const std::vector<double>& boundaries, const std::vector<UXColor>& colors);

    // The labels: children, never null; the pool grows when more boundaries are shown
    KXChartLabel* getMainLabel() const;
    KXChartLabel* getMaxLabel() const;
    KXChartLabel* getMinLabel() const;
    KXChartLabel* getTargetLabel() const;
    const std::vector<KXChartLabel*>& getPartitionLabelsPool() const;

    // Queries; a number that is not known is the lowest finite double
    double obtainTargetValueData() const;
    double obtainMaxValueData() const;
    double obtainMinValueData() const;
    /** @return how many partitions there are, 1 to 8 */
    int obtainPipePartition() const;
    /** @return where partition i ends, in degrees from the dial's left end; 0 for a style that is none */
    double obtainPartitionAngle(int i) const;
    /** @param i 0 to the number of partitions */
    double obtainPartitionLabelPercentage(int i) const;
    std::string obtainPartitionLabelString(int i) const;
    std::string obtainLabelDisplayString(double value, double ratio, KXGaugeChartLabelDisplay display) const;
    /** @return where the value stands between minimum and maximum, 0 to 1; as of the last layout */
    double getValueRatio() const;
    double getTargetRatio() const;
    /** @return the dial's rectangle, twice as wide as high, in the chart's own space */
    UXRect getPipeRect() const;

    // From UXJsonObject, UXObject, KXChart and KXChartDataAction
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    void afterReloadData() override;
    KXChartDataPath* createDataPath() override;

    // From KXChartItemsDelegate: the measures are the items, each of them its label and its piece of the dial
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override;
    KXChartDataPath* createItemPath(const KXChartItem& item) override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    KXChartLabel* obtainItemLabel(const KXChartItem& item) const override;
    std::vector<KXChartLabel*> obtainItemLabels() const override;

protected:
    void _customLayout(UXRect plotArea) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    bool _shouldPaintChild(const UXObject* child) const override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _paintOverChildren(UXPaintConfig* config, const UXRect& dirtyRect) override;

    /** Derives both ratios from the data and the custom values. */
    void initParam();
    UXColor _obtainPipePartitionColor(int i) const;
    /** @return the colour of partition i of n, from the minimum's over the middle to the maximum's */
    UXColor _obtainPipePartitionColor_EventDistributed(int n, int i) const;

    // Layout steps
    void _customLayout_setText(KXGaugeLayout& layout);
    void _customLayout_setPartitionLabel(KXGaugeLayout& layout);
    void _customLayout_setTextProperty(KXGaugeLayout& layout) const;
    void _customLayout_setRect(KXGaugeLayout& layout, const UXRect& plotArea);
    /** @param h1 the height of the minimum and maximum labels below the dial's ends, 0 for none
     *  @param h2 the height of the main label below the hub, 0 for none
     *  @param size the target label's
     *  @return the dial's radius */
    int _customLayout_setRect_pipeRadius(KXGaugeChartLabelDisplay display, UXLayoutHelper* helper,
                                         UXRect rect, int h1, int h2, UXSize size);
    /** @return the target label's place beside a dial that stands on rect, where nothing is in its way */
    UXRect _customLayout_getRect_targetLabel(UXRect rect, int radius, UXSize size) const;
    /** The same beside a dial about center. */
    UXRect _customLayout_getRect_targetLabel_core(UXPoint center, int radius, UXSize size) const;

private:
    void _layoutAnew();
    void _colorLabels();
    void _growPartitionLabelsPool(std::size_t count);
    void _takeText(KXChartLabel* label, const KXGaugeText& text);
    KXGaugeDial _obtainDial() const;
    bool _hasValue() const;
    bool _showsMeasure(std::uint64_t measure) const;
    KXChartLabel* _obtainLabel(std::uint64_t measure) const;
    std::string _obtainMeasureText(std::uint64_t measure, KXGaugeChartLabelDisplay display) const;
    std::string _obtainHintText(std::uint64_t measure) const;
    bool _isGivenByHost(std::uint64_t measure) const;
    void _drawPipe(UXPainter& painter, const KXGaugeDial& dial) const;
    void _drawPipeValue(UXPainter& painter, const KXGaugeDial& dial, int partition, double from,
                        double to) const;
    void _drawTarget(UXPainter& painter, const KXGaugeDial& dial) const;
    void _drawPointer(UXPainter& painter, const KXGaugeDial& dial) const;
    void _registerActions(KXChartLabel* label, const std::string& identifier, std::uint64_t measure);
    static const UXPropertyType& _obtainPartitionLabelsPoolType();
    bool _readPartitionLabelsPool(const std::string& key);

    // Children
    KXChartLabel* m_mainLabel;
    KXChartLabel* m_maxLabel;
    KXChartLabel* m_minLabel;
    KXChartLabel* m_targetLabel;
    std::vector<KXChartLabel*> m_partitionLabelsPool;

    // Derived by the layout
    double m_valueRatio = noValue;
    double m_targetRatio = noValue;
    UXTextProperty m_maxMinProperty; // of the try that the layout makes
    UXRect m_pipeRect;
    KXTextLosses m_textLosses; // of the last layout
};
