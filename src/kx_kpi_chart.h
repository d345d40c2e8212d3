#pragma once

#include "kx_chart_kpi_panel.h"
#include "kx_figure_chart.h"
#include "kx_kpi_chart_options.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_KPI_CHART_KEYS(KEY)                                                                               \
    KEY(KXKpiChartMainDisplay, MainDisplay, m_mainDisplay, KXKpiChartMainDisplay::Actual, Any(Kpi), Layout,  \
        "what is large: the actual value, its percentage of the comparison, or both")                        \
    KEY(bool, HigherIsBetter, m_higherIsBetter, true, Any(Kpi), Layout, "off: lower values are better")      \
    KEY(std::vector<double>, Thresholds, m_thresholds, _makeUsualThresholds(), Any(Kpi), Layout,             \
        "percentages of the comparison from which on a value is fair and good; 110 and 100 where lower is "  \
        "better, as 90 and 100 are taken there")                                                             \
    KEY(std::string, ComparisonCaption, m_comparisonCaption, std::string(), Any(Kpi), Layout,                \
        "what stands before the comparison; empty: the measure's label")                                     \
    KEY(bool, ShowComparisonValue, m_showComparisonValue, true, Any(Kpi), Layout,                            \
        "the comparison with its caption")                                                                   \
    KEY(KXKpiDifferenceDisplay, DifferenceDisplay, m_differenceDisplay, KXKpiDifferenceDisplay::Both,        \
        Any(Kpi), Layout, "how the difference to the comparison is written")                                 \
    KEY(UXTextProperty, DifferenceProperty, m_differenceProperty,                                            \
        _makeTextProperty(12, UXColor(105, 105, 110)), Any(Kpi), Layout,                                     \
        "text of the difference; its colour is that of what has no status")                                  \
    KEY(bool, ShowStatus, m_showStatus, true, Any(Kpi), Layout, "the status in words behind the difference") \
    KEY(bool, ShowProgress, m_showProgress, true, Any(Kpi), Layout,                                          \
        "a bar of the actual value up to the comparison, with its percentage")                               \
    KEY(int, PercentageDecimals, m_percentageDecimals, 1, Any(Kpi), Layout,                                  \
        "how many decimals percentages have, 0 to 9")                                                        \
    KEY(UXColor, GoodColor, m_goodColor, UXColor(22, 120, 60), Any(Kpi), Layout, "of what is good")          \
    KEY(UXColor, FairColor, m_fairColor, UXColor(150, 88, 0), Any(Kpi), Layout, "of what is fair")           \
    KEY(UXColor, PoorColor, m_poorColor, UXColor(190, 40, 40), Any(Kpi), Layout, "of what is poor")          \
    KEY(UXColor, ProgressColor, m_progressColor, UXColor(90, 140, 200), Any(Kpi), Repaint,                   \
        "of a bar of progress without a status")                                                             \
    KEY(UXColor, TrackColor, m_trackColor, UXColor(229, 231, 235), Any(Kpi), Repaint,                        \
        "of what is left of a bar of progress")                                                              \
    KEY(UXColor, TargetColor, m_targetColor, UXColor(64, 64, 64), Any(Kpi), Repaint,                         \
        "of the target's mark at a bar's end")

/** Shows what a value is, against what it should be: caption, value, comparison, difference, status and
 * progress, in one panel or in a panel for each member. */
class KX_EXPORT KXKpiChart : public KXFigureChart {
    KX_DECLARE_CHART_KEYS(KX_KPI_CHART_KEYS)
public:
    KXKpiChart();
    ~KXKpiChart() override;

    /** The lines of a panel, as getLines has them. */
    enum Line : std::size_t { Caption, Value, Difference, Comparison, Progress };

    /** @return the numbers of a panel; none for a group that there is not */
    KXChartKpiPanel obtainPanel(std::uint64_t group) const;
    KXKpiStatus obtainStatus(std::uint64_t group) const;
    /** @return what a line of a panel says, empty for nothing. The provider may be asked for a caption, which
     * may destroy the chart. */
    std::string obtainLineText(std::uint64_t group, Line line);

    // From KXMemberPanelChart and UXJsonObject
    std::uint64_t obtainGroupCount() const override;
    std::string customSerializeTypeID() override;
    std::string customSerializeVersion() override;
    bool customDeserialize() override;
    void customReloadData() override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;

protected:
    std::vector<KXFigureLine> _makeLines() const override;
    Text _obtainText(std::uint64_t group, std::size_t line) override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    KXChartDataProviderHintData _describeItem(const KXChartItem& item) override;
    void _paintOverItems(UXPainter& painter) const override;

private:
    /** A bar of progress, or an arrow, as it is drawn. */
    struct Mark {
        KXChartItem item;
        UXDoubleRect rect;
        double share = 0; /**< of a bar: what is filled; of an arrow: above 0 upwards */
        UXColor color{};
        bool isArrow = false;
    };

    static std::vector<double> _makeUsualThresholds();
    UXColor _obtainStatusColor(KXKpiStatus status, const UXColor& other) const;
    std::string _obtainValueText(const KXChartKpiPanel& panel) const;
    std::string _obtainDifferenceText(const KXChartKpiPanel& panel) const;
    std::string _obtainComparisonText(const KXChartKpiPanel& panel) const;
    int _obtainDirection(const KXChartKpiPanel& panel) const;
    void _layoutBar(const PlacedText& text, const UXDoubleRect& panel);
    void _layoutArrow(const PlacedText& text);
    void _paintBar(UXPainter& painter, const Mark& mark) const;
    void _paintArrow(UXPainter& painter, const Mark& mark) const;

    std::array<std::string, 4> m_statusWords; // by status, in the host's language
    std::vector<Mark> m_marks;
};
