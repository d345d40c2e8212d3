#pragma once

#include "kx_figure_line.h"
#include "kx_key_table.h"
#include "kx_line_chart.h"
#include "kx_trend_chart_options.h"
#include "kx_value_change.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TREND_CHART_KEYS(KEY)                                                                            \
    KEY(KXTrendComparison, CompareTo, m_compareTo, KXTrendComparison::Previous, Any(Trend), Reload,         \
        "what the last value is compared with")                                                             \
    KEY(int, CompareBack, m_compareBack, 1, Any(Trend), Reload, "with StepsBack: how many steps")           \
    KEY(bool, OmitLast, m_omitLast, false, Any(Trend), Reload,                                              \
        "the last period still runs: the last value before it is told")                                     \
    KEY(KXTrendChartDiffDisplay, DiffDisplay, m_diffDisplay, KXTrendChartDiffDisplay::Value, Any(Trend),    \
        Layout, "how the change is written")                                                                \
    KEY(int, PercentageDecimals, m_percentageDecimals, 1, Any(Trend), Layout,                               \
        "how many decimals percentages have, 0 to 9")                                                       \
    KEY(bool, HigherIsBetter, m_higherIsBetter, true, Any(Trend), Layout, "off: lower values are better")   \
    KEY(UXTextAlign, MainLabelAlign, m_mainLabelAlign, UXTextAlign::Left, Any(Trend), Layout,               \
        "where texts stand")                                                                                \
    KEY(bool, ShowCaption, m_showCaption, true, Any(Trend), Layout,                                         \
        "what the value is, where the chart has no title")                                                  \
    KEY(bool, ShowPeriod, m_showPeriod, true, Any(Trend), Layout, "what period the value is of")            \
    KEY(bool, ShowChange, m_showChange, true, Any(Trend), Layout, "the change and what it is counted from") \
    KEY(bool, ShowSparkline, m_showSparkline, true, Any(Trend), Layout, "all values as a line below")       \
    KEY(bool, ShowExtremes, m_showExtremes, true, Any(Trend), Layout,                                       \
        "points at the least and the greatest value of the line")                                           \
    KEY(UXTextProperty, CaptionProperty, m_captionProperty, _makeTextProperty(14, UXColor(105, 105, 110)),  \
        Any(Trend), Layout, "text of the caption")                                                          \
    KEY(UXTextProperty, ValueProperty, m_valueProperty, _makeTextProperty(36, UXColor(64, 64, 64)),         \
        Any(Trend), Layout, "text of the value; it shrinks until it fits")                                  \
    KEY(UXTextProperty, DifferenceProperty, m_differenceProperty,                                           \
        _makeTextProperty(12, UXColor(105, 105, 110)), Any(Trend), Layout,                                  \
        "text of the change; its colour is that of no change")                                              \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(12, UXColor(105, 105, 110)),      \
        Any(Trend), Layout, "text of the period")                                                           \
    KEY(UXColor, GoodColor, m_goodColor, UXColor(22, 120, 60), Any(Trend), Layout,                          \
        "of a change for the better")                                                                       \
    KEY(UXColor, PoorColor, m_poorColor, UXColor(190, 40, 40), Any(Trend), Layout,                          \
        "of a change for the worse")                                                                        \
    KEY(UXColor, ExtremeColor, m_extremeColor, UXColor(135, 135, 140), Any(Trend), Layout,                  \
        "of the points at the least and the greatest value")

/** Tells the last value of a measure along ordered steps, how it has changed, and the way to it as a line
 * without axes. */
class KX_EXPORT KXTrendChart : public KXLineChart {
    KX_DECLARE_CHART_KEYS(KX_TREND_CHART_KEYS)
public:
    KXTrendChart();
    ~KXTrendChart() override;

    /** The lines of the text. */
    enum Line : std::size_t { Caption, Value, Change, Period };

    /** @return the step whose value is told, none without values */
    const std::optional<std::uint64_t>& getToldStep() const { return m_toldStep; }
    /** @return the step that it is compared with, none where the data lack it */
    const std::optional<std::uint64_t>& getBaseStep() const { return m_baseStep; }
    KXValueChange obtainChange() const;
    /** @return what a line says. The provider may be asked for the name of a step, which may destroy the
     * chart. */
    std::string obtainLineText(Line line);

    /** @return where a line stands in the chart's own space, as of the last layout; empty for one that is not
     * shown */
    UXDoubleRect obtainLineRect(Line line) const;

    // From KXChart, KXAxisChart, KXXYAxisChart and UXJsonObject
    std::string customSerializeTypeID() override;
    void customReloadData() override;
    std::uint64_t obtainLegendCellSize() override;
    KXAxisChartDataView* obtainViewOfSeries(std::uint64_t series) const override;
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;

protected:
    void _customLayout(UXRect plotArea) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    void _categoryTextsArrived(bool areFirst) override;
    void _layoutMarks() override;
    void _paintUnderChildren(UXPainter& painter) override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    struct Text {
        Line line;
        std::string text;
        UXDoubleRect rect;
        UXTextProperty property;
    };
    struct Point {
        UXDoublePoint place; // in the chart's own space
        bool isTold = false;
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    void _findSteps();
    std::vector<KXFigureLine> _makeLines();
    double _layoutTexts(const UXRect& area);
    void _placeText(const KXFigureLine& line, Line kind, const UXRect& area);
    int _obtainDirection() const;
    UXColor _obtainChangeColor() const;

    std::string m_sinceWord; // in the host's language
    std::optional<std::uint64_t> m_toldStep, m_baseStep;
    std::vector<std::uint64_t> m_markedSteps; // the one that is told is the last one

    // Made by the layout
    std::vector<Text> m_texts;
    KXTextLosses m_textLosses;
    UXDoubleRect m_arrow; // empty for none
    int m_direction = 0;  // of the change, as it is written
    UXRect m_textArea;
    std::vector<Point> m_points;
};
